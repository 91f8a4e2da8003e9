// JSON, XML and verse lines with random elements: every letter is in the module or counted by the report.

#include "balance_fixture.h"
#include "errors.h"
#include "json_letters.h"
#include "letter_proof.h"
#include "thrown.h"
#include "xml_letters.h"

using namespace Kedrin::ModTool;
using namespace balance_test;
using test_support::messageOf;

namespace {

class CXmlMaker : public CMaker
{
public:
    using CMaker::CMaker;

    void osis()
    {
        mark("<osis><osisText osisIDWork='W'><header><work osisWork='W'>");
        mark("<title>");
        text("Title 1");
        mark("</title><rights>");
        text("rights");
        mark("</rights></work></header>");
        for (const char* book : {"Gen", "Jude", "PrMan"}) {
            mark(std::string("<div type='book' osisID='") + book + "'>");
            for (unsigned int i = 0; i < 60; ++i)
                osisPart(0, book);
            mark("</div>");
        }
        mark("</osisText></osis>");
    }

    void zefania()
    {
        mark("<XMLBIBLE biblename='B'><INFORMATION><title>");
        text("Title 1");
        mark("</title><other>");
        text("other");
        mark("</other></INFORMATION>");
        for (const char* book : {"1", "65", "76"}) {
            mark(std::string("<BIBLEBOOK bnumber='") + book + "'><CHAPTER cnumber='1'>");
            for (unsigned int i = 0; i < 60; ++i)
                zefaniaPart(0);
            mark("</CHAPTER></BIBLEBOOK>");
        }
        mark("</XMLBIBLE>");
    }

private:
    void osisPart(unsigned int depth, const std::string& book)
    {
        static constexpr const char* elements[] = {"p",
                                                   "l",
                                                   "lg",
                                                   "q",
                                                   "w",
                                                   "note",
                                                   "title",
                                                   "title type='psalm'",
                                                   "title canonical='true'",
                                                   "head",
                                                   "speaker",
                                                   "rdg type='alternate'",
                                                   "seg type='x-variant' subType='x-2'",
                                                   "figure",
                                                   "index",
                                                   "div type='introduction'",
                                                   "hi",
                                                   "divineName",
                                                   "transChange",
                                                   "foreign",
                                                   "list",
                                                   "item",
                                                   "table",
                                                   "row",
                                                   "cell",
                                                   "reference",
                                                   "chapter",
                                                   "any"};
        static constexpr const char* empties[] = {"<lb/>",           "<milestone marker='¶'/>",
                                                  "<q marker='“'/>", "<verse eID='a'/>",
                                                  "<note/>",         "<title/>",
                                                  "<chapter/>",      "<!-- no text -->"};
        switch (number(depth < 4 ? 8 : 2)) {
        case 0:
        case 1:
            return words();
        case 2:
            mark("<verse osisID='" + book + ".1." + std::to_string(number(9)) + (number(2) ? "!a" : "") +
                 "'>");
            words();
            return mark("</verse>");
        case 3:
            return mark("<verse sID='a' osisID='" + book + ".1." + std::to_string(1 + number(9)) + "'/>");
        case 4:
            mark(oneOf(empties));
            return text(number(3) ? "" : "left \\nd Lord\\nd* \\q1 it\\Now \\43:1\\it ");
        default:
            return element(oneOf(elements), [&] { osisPart(depth + 1, book); });
        }
    }

    void zefaniaPart(unsigned int depth)
    {
        static constexpr const char* elements[] = {"note", "xref", "caption", "prolog", "remark", "media",
                                                   "gr",   "GRAM", "style",   "sup",    "any"};
        switch (number(depth < 4 ? 6 : 2)) {
        case 0:
        case 1:
            return words();
        case 2:
            mark(depth == 0 ? "<VERS vnumber='" + std::to_string(number(9)) + "'>" : "<DIV>");
            words();
            return mark(depth == 0 ? "</VERS>" : "</DIV>");
        case 3:
            return mark("<BR/>");
        default:
            return element(oneOf(elements), [&] { zefaniaPart(depth + 1); });
        }
    }

    template <typename Content>
    void element(const std::string& tag, Content&& content)
    {
        mark('<' + tag + '>');
        for (unsigned int i = number(3); i != ~0u; --i)
            content();
        mark("</" + tag.substr(0, tag.find(' ')) + '>');
    }
};

class CJsonMaker : public CMaker
{
public:
    using CMaker::CMaker;

    void make()
    {
        mark("{");
        member("translation", [&] { text("Title 1"); });
        member("lang", [&] { text("bg"); });
        mark("\"books\": [");
        for (const char* book : {"Gen", "Jude", "Laodiceans"}) {
            mark(book == std::string("Gen") ? "{" : ", {");
            member("id", [&] { text(book == std::string("Laodiceans") ? "LAO" : book); });
            member("other", [&] { jsonWords(); });
            mark("\"chapters\": [[\"");
            jsonWords();
            for (unsigned int i = 0; i < 40; ++i) {
                mark("\", \"");
                for (unsigned int parts = number(6); parts != ~0u; --parts)
                    part(0);
            }
            mark("\"], {");
            member("heading", [&] { jsonWords(); });
            mark("\"verses\": [{");
            member("notes", [&] { jsonWords(); });
            mark("\"text\": [\"");
            jsonWords();
            mark("\"]}]}]}");
        }
        mark("]}");
    }

private:
    template <typename Content>
    void member(const std::string& key, Content&& content)
    {
        mark('"' + key + "\": \"");
        content();
        mark("\", ");
    }

    void jsonWords()
    {
        static constexpr const char* some[] = {"Бог", "рече", "Lord",    "3", "и", "сè",
                                               "æ",   "ѝ",    "a\u0301", "Ⅷ", "½"};
        static constexpr const char* between[] = {" ", ", ", "\\n", " — ", "&nbsp;", " &lt; ", " < ", "\\\""};
        for (unsigned int i = number(4); i != ~0u; --i) {
            text(oneOf(some));
            mark(oneOf(between));
        }
    }

    void part(unsigned int depth)
    {
        static constexpr const char* elements[] = {"i",
                                                   "b",
                                                   "span",
                                                   "h1",
                                                   "p",
                                                   "f",
                                                   "S",
                                                   "sup",
                                                   "J",
                                                   "div",
                                                   "n",
                                                   "script",
                                                   "m",
                                                   "span class='versenum'",
                                                   "p class=\\\"heading\\\""};
        static constexpr const char* singles[] = {"<br>", "<pb/>", "</i>", "<f>", "</h1>", "<!-- no text -->",
                                                  "<S/>"};
        switch (number(depth < 4 ? 4 : 1)) {
        case 0:
            return jsonWords();
        case 1:
            text(oneOf(singles));
            return text(number(3) ? "" : "x < y");
        default:
            const std::string tag = oneOf(elements);
            text('<' + tag + '>');
            for (unsigned int i = number(3); i != ~0u; --i)
                part(depth + 1);
            return text("</" + tag.substr(0, tag.find(' ')) + '>');
        }
    }
};

} // namespace

TEST_F(LetterBalance, OfRandomOsis)
{
    for (unsigned int seed = 0; seed < 40; ++seed) {
        CXmlMaker maker(seed);
        maker.osis();
        expectBalance("a.xml", maker);
    }
}

TEST_F(LetterBalance, OfRandomZefaniaXml)
{
    for (unsigned int seed = 0; seed < 40; ++seed) {
        CXmlMaker maker(seed);
        maker.zefania();
        expectBalance("a.xml", maker);
    }
}

TEST_F(LetterBalance, OfRandomJson)
{
    for (unsigned int seed = 0; seed < 40; ++seed) {
        CJsonMaker maker(seed);
        maker.make();
        expectBalance("a.json", maker);
    }
}

TEST_F(LetterBalance, OfRandomVerseLines)
{
    for (unsigned int seed = 0; seed < 20; ++seed) {
        CMaker maker(seed);
        for (unsigned int verse = 1; verse < 50; ++verse) {
            maker.mark((maker.number(5) ? "Gen\t1\t" : "PrMan\t1\t") + std::to_string(verse) + '\t');
            maker.text("Бог æ ½ " + std::to_string(maker.number(9)) + "\n");
        }
        expectBalance("a.vpl", maker);
    }
}

TEST(LetterProofs, FindALetterOfXmlThatWasDropped)
{
    CXmlMaker maker(7);
    maker.osis();
    EXPECT_EQ(proveXmlLetters("f", maker.document(), maker.letters()), maker.count());
    forEachDropped(maker.letters(), [&](const std::string& rest) {
        EXPECT_NE(
            messageOf<CBuildError>([&] { proveXmlLetters("f", maker.document(), rest); }).find(complaint),
            std::string::npos);
    });
}

TEST(LetterProofs, FindNoneInATextThatIsNotJson)
{
    EXPECT_EQ(proveJsonLetters("f", std::string("words, but no JSON"), ""), 0u);
}

TEST(LetterProofs, FindALetterOfJsonThatWasDropped)
{
    CJsonMaker maker(7);
    maker.make();
    EXPECT_EQ(proveJsonLetters("f", maker.document(), maker.letters()), maker.count());
    forEachDropped(maker.letters(), [&](const std::string& rest) {
        EXPECT_NE(
            messageOf<CBuildError>([&] { proveJsonLetters("f", maker.document(), rest); }).find(complaint),
            std::string::npos);
    });
}
