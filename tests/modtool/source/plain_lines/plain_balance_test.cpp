// Plain texts of random words: every letter is in the module or in something that the report counts, the reader drops
// none, and the same text gives the same module through each shape.

#include "balance_fixture.h"
#include "errors.h"
#include "made_lines.h"
#include "plain_letters.h"
#include "plain_maker.h"
#include "thrown.h"

using namespace Kedrin::ModTool;
using namespace balance_test;
using test_support::messageOf;

namespace {

class CPlainMaker : public CMaker
{
public:
    using CMaker::CMaker;

    void table()
    {
        text("id,Text,Book,c,Verse\n");
        for (unsigned int i = 1; i < 80; ++i) {
            text(std::to_string(i) + ",\"");
            words();
            mark("\"\", \n");
            text("\"," + std::string(oneOf(books)) + ',' + std::to_string(1 + number(5)) + ',' +
                 std::to_string(number(60)));
            mark("\n");
        }
    }

    void references()
    {
        for (unsigned int i = 1; i < 80; ++i) {
            text(std::string(oneOf(books)) + ' ' + std::to_string(1 + number(5)) + ':' +
                 std::to_string(number(60)));
            mark("\t");
            wordsOfLine();
        }
    }

    void headings()
    {
        text("# The title\n\n");
        for (unsigned int i = 1; i < 30; ++i) {
            text("## " + std::string(oneOf(books)) + "\n### Глава " + std::to_string(i) + '\n');
            for (unsigned int verse = 1 + number(5); verse > 0; --verse) {
                text(number(4) == 0 ? "### A part of it\n" : "");
                text(std::to_string(verse) + ". ");
                wordsOfLine();
            }
        }
    }

    void hashed()
    {
        for (unsigned int i = 1; i < 80; ++i) {
            text("#1:" + std::to_string(number(60)) + '#');
            mark("&quot;");
            wordsOfLine();
            text(number(3) == 0 ? "#p#\n" : "");
        }
    }

private:
    static constexpr const char* books[] = {"Gen", "Битие", "1 Цар.", "Rev", "PrMan", "II Царе"};

    void wordsOfLine()
    {
        static constexpr const char* some[] = {"Бог", "рече", "Lord", "3:4", "и", "сè",
                                               "æ",   "ѝ",    "\"x",  "#",   "½", "|;,"};
        for (unsigned int i = number(6); i > 0; --i)
            text(std::string(oneOf(some)) + ' ');
        mark("\n");
    }
};

class PlainBalance : public LetterBalance
{
protected:
    /// The files of the text in a module.
    std::map<std::string, std::string> textBuiltOf(const std::string& source)
    {
        const auto result =
            build_test::run({"build", source, made(), "--substitute", "--versification", "KJV"});
        EXPECT_EQ(result.code, 0) << result.err;
        std::map<std::string, std::string> files;
        for (const char* name : {"CompactText.bin", "Conc.bin", "WordList.txt", "BibleStructure.csv"})
            files[name] = made(name);
        return files;
    }

    void expectSameThroughEveryShape(const std::string& lines)
    {
        ASSERT_FALSE(lines.empty());
        const auto expected = textBuiltOf(m_folder.write("lines.txt", lines));
        EXPECT_EQ(textBuiltOf(m_folder.write("table.csv", build_test::csvOf(lines))) == expected, true);
        EXPECT_EQ(textBuiltOf(m_folder.write("references.txt", build_test::referencesOf(lines))) == expected,
                  true);
        EXPECT_EQ(textBuiltOf(m_folder.write("headed.txt", build_test::headedOf(lines))) == expected, true);
    }

    std::string exported(const std::string& name)
    {
        EXPECT_EQ(build_test::run({"build", "sword:" + name, made(), "--substitute"}).code, 0);
        const std::string file = m_folder.file("exported");
        EXPECT_EQ(build_test::run({"export", made(), file, "--to", "verse-lines"}).code, 0);
        return build_test::bytesOf(file);
    }
};

TEST_F(PlainBalance, OfRandomTablesAndLines)
{
    for (unsigned int seed = 0; seed < 12; ++seed) {
        CPlainMaker table(seed), references(seed), headings(seed), hashed(seed);
        table.table();
        expectBalance("a.csv", table);
        references.references();
        expectBalance("a.txt", references);
        headings.headings();
        expectBalance("a.md", headings);
        hashed.hashed();
        expectBalance("01-genesis.dat", hashed);
    }
}

TEST_F(PlainBalance, ALetterThatWasDroppedIsFound)
{
    CPlainMaker maker(1);
    maker.references();
    EXPECT_EQ(provePlainLetters("f", maker.document(), false, maker.letters()), maker.count());
    forEachDropped(maker.letters(), [&](const std::string& taken) {
        const std::string said =
            messageOf<CBuildError>([&] { provePlainLetters("f", maker.document(), false, taken); });
        EXPECT_TRUE(said.ends_with(complaint)) << said;
    });
}

TEST_F(PlainBalance, MadeCyrillicIsTheSameThroughEveryShape)
{
    expectSameThroughEveryShape(build_test::cyrillicLines("KJV"));
}

TEST_F(PlainBalance, EnglishBiblesAreTheSameThroughEveryShape)
{
    expectSameThroughEveryShape(exported("KJV"));
    expectSameThroughEveryShape(exported("WEB"));
}

} // namespace
