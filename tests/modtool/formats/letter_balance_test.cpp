// Sources of random elements: every letter of them is in the module or in something that the report counts.

#include "build_error.h"
#include "build_fixture.h"
#include "letter_proof.h"
#include "letters.h"
#include "source_format.h"
#include "thrown.h"
#include "usfm_letters.h"
#include "usfm_reader.h"

#include <random>

namespace {

using namespace Kedrin::ModTool;
using test_support::messageOf;

/// A document, and the letters and digits of its text alone.
class CMaker
{
public:
    explicit CMaker(unsigned int seed) : m_random(seed) {}

    unsigned int number(unsigned int count) { return static_cast<unsigned int>(m_random() % count); }

    template <std::size_t N>
    const char* oneOf(const char* const (&names)[N])
    {
        return names[number(N)];
    }

    /// Some words, with signs and blanks of any kind between them.
    void words()
    {
        static constexpr const char* some[] = {"Бог", "рече", "Lord",    "3", "и", "сè",
                                               "æ",   "ѝ",    "a\u0301", "Ⅷ", "½"};
        static constexpr const char* between[] = {" ", ", ", "\n", " — ", "…", "\u00A0", " ~ "};
        for (unsigned int i = number(4); i != ~0u; --i) {
            text(oneOf(some));
            m_document += oneOf(between);
        }
    }

    void text(const std::string& utf8)
    {
        m_document += utf8;
        m_count += appendLetters(utf8, m_letters);
    }

    void mark(const std::string& markup) { m_document += markup; }

    const std::string& document() const { return m_document; }
    const std::string& letters() const { return m_letters; }
    std::uint64_t count() const { return m_count; }

private:
    std::mt19937 m_random;
    std::string m_document;
    std::string m_letters;
    std::uint64_t m_count = 0;
};

class CUsfmMaker : public CMaker
{
public:
    using CMaker::CMaker;

    void book(const char* code)
    {
        mark(std::string("\\id ") + code + ' ');
        text("words of a book\n");
        for (const char* field : {"\\h ", "\\toc1 ", "\\toc3 ", "\\ide ", "\\rem ", "\\sts "})
            if (number(2)) {
                mark(field);
                text(std::string(field).starts_with("\\ide") ? "UTF-8\n" : "field 7\n");
            }
        for (unsigned int chapter = 1; chapter <= 2; ++chapter) {
            mark("\\c " + std::to_string(chapter) + "\n");
            for (unsigned int i = 0; i < 40; ++i)
                part(0);
        }
    }

private:
    void part(unsigned int depth)
    {
        static constexpr const char* paragraphs[] = {
            "p",  "q1",  "m",  "b",   "tr", "li2",    "nb",  "pc",   "d",     "s1",   "ms",   "r",
            "sp", "mt2", "ip", "imt", "cp", "periph", "esb", "esbe", "zpara", "th1 ", "tc2-3"};
        static constexpr const char* characters[] = {"add", "nd", "wj", "w",  "rb",  "qs", "f",   "x",
                                                     "fe",  "ef", "rq", "va", "vp",  "ca", "fig", "pro",
                                                     "cat", "zz", "ft", "xt", "jmp", "k",  "+nd", "+w"};
        static constexpr const char* attributes[] = {
            "", "", "", "|lemma=\"слово 1\"", "|G12", "|x-a='b' c=\"d\"", "|a|b"};
        switch (number(depth < 3 ? 8 : 2)) {
        case 0:
        case 1:
            return words();
        case 2:
        case 3:
            return verse();
        case 4:
            mark(std::string("\n\\") + oneOf(paragraphs) + (number(2) ? " " : "\n"));
            return words();
        case 5:
            mark("\\qt-s ");
            if (number(2))
                text("|who=\"Пилат\"");
            return mark("\\* ");
        default:
            const std::string name = oneOf(characters);
            mark("\\" + name + ' ');
            for (unsigned int i = number(3); i != ~0u; --i)
                part(depth + 1);
            text(oneOf(attributes));
            mark(number(8) ? "\\" + name + '*' : "");
        }
    }

    void verse()
    {
        static constexpr const char* numbers[] = {"1", "2a", "3-4", "5", "6,7", "8а", "9.", "0"};
        const std::string number = oneOf(numbers);
        mark(this->number(4) ? "\\v " + number + ' ' : "\\v" + number + '\n');
        words();
    }
};

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

class LetterBalance : public build_test::Building
{
protected:
    /// Builds the document: no letter more or less is accounted for than its maker put in.
    void expectBalance(const std::string& name, const CMaker& maker) const
    {
        const auto result = build_test::run(
            {"build", m_folder.write(name, maker.document()), made(), "--substitute", "--verbose"});
        ASSERT_EQ(result.code, 0) << result.err << maker.document();
        ASSERT_NE(result.out.find("\nletters       " + std::to_string(maker.count()) +
                                  " letters and digits in the source\n"),
                  std::string::npos)
            << result.out << maker.document();
    }
};

/// Calls `use` with the letters that are left when one is dropped, for some of them.
template <typename Use>
void forEachDropped(const std::string& letters, Use&& use)
{
    const auto isWithin = [](char c) { return (static_cast<unsigned char>(c) & 0xC0u) == 0x80; };
    for (std::size_t begin = 0; begin < letters.size(); begin += 37) {
        std::size_t first = begin;
        while (first < letters.size() && isWithin(letters[first]))
            ++first;
        std::size_t end = first + 1;
        while (end < letters.size() && isWithin(letters[end]))
            ++end;
        if (first < letters.size())
            use(letters.substr(0, first) + letters.substr(end));
    }
}

constexpr const char* complaint = "this is an error in kedrin-module, please report it";

} // namespace

TEST_F(LetterBalance, OfRandomUsfm)
{
    for (unsigned int seed = 0; seed < 40; ++seed) {
        CUsfmMaker maker(seed);
        for (const char* book : {"GEN", "FRT", "jud,", "MAN"})
            maker.book(book);
        expectBalance("a.usfm", maker);
    }
}

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

TEST(LetterProofs, FindALetterOfUsfmThatWasDropped)
{
    CUsfmMaker maker(7);
    maker.book("GEN");
    EXPECT_EQ(proveUsfmLetters("f", maker.document(), maker.letters()), maker.count());
    forEachDropped(maker.letters(), [&](const std::string& rest) {
        EXPECT_NE(
            messageOf<CBuildError>([&] { proveUsfmLetters("f", maker.document(), rest); }).find(complaint),
            std::string::npos);
    });
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

TEST(LetterProofs, AgreeWithTheReaderOnAnyUsfm)
{
    static constexpr const char* parts[] = {
        "\\id GEN", "\\id ",   "\\id",       "\\c",       "\\c 1",      "\\v",     "\\v 1",   "\\v2",
        "\\v-s",    "\\+v 3",  "\\id |x\\*", "\\v |x\\*", "\\*",        "\\",      "*",       "|",
        "a=\"b\"",  "3а",      "4И",         "5-3",       "99999",      "\u00A0",  " ",       "\n",
        "\r\n",     "\t",      "\uFEFF",     "word",      "\\esb ",     "\\esbe ", "\\f ",    "\\f*",
        "\\w ",     "\\w*",    "\\d ",       "\\mt ",     "\\h ",       "\\rem ",  "\\qt-s ", "\\zz",
        "\\p ",     "\\ip ",   "\\fig ",     "\\fig*",    "~",          "//",      "-",       "1",
        "\\id1 x",  "\\c2-3 ", "\\v_ ",      "\\C 1",     "\\w a|b\\w*"};
    std::mt19937 random(20240302);
    for (unsigned int round = 0; round < 3000; ++round) {
        std::string text = "\\id GEN\n\\v 1 a";
        for (unsigned int i = 0; i < 12; ++i)
            text += parts[random() % std::size(parts)];
        const std::string said = messageOf<CBuildError>([&] {
            CUsfmReader reader;
            reader.read("f", text);
            reader.finish("f");
        });
        ASSERT_EQ(said.find(complaint), std::string::npos) << said << '\n' << text;
    }
}

TEST(LetterProofs, OfUsfmKnowMarkersNumbersAndCodesAlone)
{
    const auto count = [](const std::string& document, const std::string& letters) {
        return proveUsfmLetters("f", document, letters);
    };
    EXPECT_EQ(count("\\id GEN a\n\\c 1\n\\p\n\\v 1 b\\add c\\add* \\+nd d\\+nd*", "abcd"), 4u);
    EXPECT_EQ(count("\\id GEN, a\\c1\\v2-3а b\\v 4И\\v 5. c\\v\u00A0d", "abИcd"), 5u);
    EXPECT_EQ(count("\\w a|b=\"c\"\\w* \\qt-s |d\\*", "abcd"), 4u);
    EXPECT_EQ(messageOf<CBuildError>([&] { count("\\p a\nb", "a"); }),
              "f:1: the source has \"b\" here, but \"\" was read; this is an error in kedrin-module, please "
              "report it");
}
