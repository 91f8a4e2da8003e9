// USFM with random markers: every letter is in the module or counted by the report.

#include "balance_fixture.h"
#include "errors.h"
#include "thrown.h"
#include "usfm_letters.h"
#include "usfm_reader.h"

using namespace Kedrin::ModTool;
using namespace balance_test;
using test_support::messageOf;

namespace {

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
              "f:1: the source has \"b\" here, but \"\" was read; this is a bug in kedrin-module, "
              "please report it");
}
