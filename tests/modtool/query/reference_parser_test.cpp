#include "errors.h"
#include "query_fixture.h"
#include "reference_parser.h"
#include "thrown.h"

#include <gtest/gtest.h>

using namespace Kedrin::ModTool;
using namespace query_test;
using test_support::messageOf;
using test_support::plainBook;

namespace {

/// Битие 1-3, Исая, Йов, Йоан, Йона, 1 Царе, 2 Царе, Юда: includes similar names.
class References : public testing::Test
{
protected:
    /// "book chapter:verse-chapter:verse", all from 0, and " whole" after chapters; several with ", " between.
    std::string range(const std::string& reference) const
    {
        std::string text;
        for (const VerseRange& r : parseReferences(reference, m_module))
            text += (text.empty() ? "" : ", ") + std::to_string(r.book) + ' ' +
                    std::to_string(r.firstChapter) + ':' + std::to_string(r.firstVerse) + '-' +
                    std::to_string(r.lastChapter) + ':' + std::to_string(r.lastVerse) +
                    (r.wholeChapters ? " whole" : "");
        return text;
    }
    std::string refusal(const std::string& reference) const
    {
        return messageOf<CNotFound>([&] { parseReferences(reference, m_module); });
    }

private:
    Modules m_modules;
    CModuleReader m_module{m_modules.add(
        "m",
        test_support::makeModule("m", {plainBook(0, "Битие", {31, 25, 24}), plainBook(22, "Исая", {31}),
                                       plainBook(17, "Йов", {22}), plainBook(53, "Йоан", {51, 25, 36}),
                                       plainBook(31, "Йона", {17, 10}), plainBook(8, "1 Царе", {28, 36}),
                                       plainBook(9, "2 Царе", {27}), plainBook(61, "Юда", {25}),
                                       plainBook(18, "Псалми", {6, 12}), plainBook(50, "Матей", {25, 23})}))};
};

} // namespace

TEST_F(References, VerseOfAChapter)
{
    EXPECT_EQ(range("Йоан 3:16"), "3 2:15-2:15");
    EXPECT_EQ(range("  Йоан   3 : 16 "), "3 2:15-2:15");
    EXPECT_EQ(range("Йоан3:16"), "3 2:15-2:15");
    EXPECT_EQ(range("Мт 2,3"), "9 1:2-1:2");
    EXPECT_EQ(range("Gen. 1.1"), "0 0:0-0:0");
}

TEST_F(References, RangeOfVerses)
{
    EXPECT_EQ(range("Бит 1:1-5"), "0 0:0-0:4");
    EXPECT_EQ(range("Jn 3:16\u201318"), "3 2:15-2:17");
    EXPECT_EQ(range("Бит 1:30-2:3"), "0 0:29-1:2");
    EXPECT_EQ(range("Бит 1-2:3"), "0 0:0-1:2");
}

TEST_F(References, WholeChaptersAndBooks)
{
    EXPECT_EQ(range("Ps 2"), "8 1:0-1:11 whole");
    EXPECT_EQ(range("Gen 1-2"), "0 0:0-1:24 whole");
    EXPECT_EQ(range("Йона"), "4 0:0-1:9 whole");
    EXPECT_EQ(range("1 Царе"), "5 0:0-1:35 whole");
}

TEST_F(References, InABookOfOneChapterANumberIsAVerse)
{
    EXPECT_EQ(range("Юда 5"), "7 0:4-0:4");
    EXPECT_EQ(range("Jude 5-7"), "7 0:4-0:6");
    EXPECT_EQ(range("Юда 1"), "7 0:0-0:24 whole");
    EXPECT_EQ(range("Юда 1:5"), "7 0:4-0:4");
}

TEST_F(References, NamesInAnySpelling)
{
    for (const char* name : {"Йоан", "ЙОАН", "йоан", "John", "jn", "JOHN", "Jhn", "Йн", "Ин", "Joh.", "Йоа"})
        EXPECT_EQ(range(std::string(name) + " 1:1"), "3 0:0-0:0") << name;
    for (const char* name : {"1 Царе", "1Цар", "1 цар.", "I Царе", "1 Sam", "1Sam", "1 Царства", "i samuel"})
        EXPECT_EQ(range(std::string(name) + " 1:1"), "5 0:0-0:0") << name;
    EXPECT_EQ(range("Псалом 1:1"), "8 0:0-0:0");
    EXPECT_EQ(range("\u0418\u0306оан 1:1"), "3 0:0-0:0"); // й as two characters
}

TEST_F(References, TitleOfTheModuleGoesBeforeBeginnings)
{
    EXPECT_EQ(range("Ис 1:1"), "1 0:0-0:0");
    EXPECT_EQ(range("Йон 1:1"), "4 0:0-0:0");
}

TEST_F(References, AmbiguousNameListsTheBooks)
{
    EXPECT_EQ(refusal("Йо 1:1"), "\"Йо\" is ambiguous: Йов, Йоан or Йона");
    EXPECT_EQ(refusal("Jo 1"), "\"Jo\" is ambiguous: Йов, Йона or Йоан");
}

TEST_F(References, UnknownNameListsWhatIsAlike)
{
    EXPECT_EQ(refusal("Йуан 1"), "\"Йуан\" is not a book of the module (did you mean Йоан?)");
    EXPECT_EQ(refusal("Genesys 1"), "\"Genesys\" is not a book of the module (did you mean Битие?)");
    EXPECT_EQ(refusal("Zzzz 1"), "\"Zzzz\" is not a book of the module");
    EXPECT_EQ(refusal("- 1"), "\"-\" is not a book of the module");
}

TEST_F(References, BookThatTheModuleLacks)
{
    EXPECT_EQ(refusal("Rev 1"), "the module has no book \"Rev\" (Rev)");
}

TEST_F(References, NumbersOutsideTheBook)
{
    EXPECT_EQ(refusal("Йоан 4:1"), "Йоа has 3 chapters; there is no chapter 4");
    EXPECT_EQ(refusal("Йоан 0"), "Йоа has 3 chapters; there is no chapter 0");
    EXPECT_EQ(refusal("Юда 2:1"), "Юда has 1 chapter; there is no chapter 2");
    EXPECT_EQ(refusal("Йоан 3:37"), "Йоа 3 has 36 verses; there is no verse 37");
    EXPECT_EQ(refusal("Йоан 3:0"), "Йоа 3 has 36 verses; there is no verse 0");
    EXPECT_EQ(refusal("Юда 26"), "Юда 1 has 25 verses; there is no verse 26");
    EXPECT_EQ(refusal("Йоан 3:5-99"), "Йоа 3 has 36 verses; there is no verse 99");
    EXPECT_EQ(refusal("Йоан 3:16-3"), "\"Йоан 3:16-3\" ends before it begins");
    EXPECT_EQ(refusal("Йоан 3-2"), "\"Йоан 3-2\" ends before it begins");
}

TEST_F(References, InvalidReferences)
{
    for (const char* text : {"", " ", "Йоан 3:16,", "Йоан 1,2,", "Йоан 3:", "Йоан 3:16:2", "Йоан 1-2-3",
                             "Йоан 3:-5", "Йоан 99999999999", "Йоан 1-", "Йоан 3::16"})
        EXPECT_EQ(refusal(text), '"' + std::string(text) + "\" is not a reference") << text;
}

TEST_F(References, ReferenceWithoutABookIsAnsweredWithAnExample)
{
    EXPECT_EQ(refusal("3:16"), "\"3:16\" does not name a book (for example: Бит 3:16)");
    EXPECT_EQ(refusal("1"), "\"1\" does not name a book (for example: Бит 1)");
    EXPECT_EQ(refusal("3:16; Йоан 1"), "\"3:16\" does not name a book (for example: Бит 3:16)");
}

TEST_F(References, CommaAfterAVerseAddsVerses)
{
    EXPECT_EQ(range("Йоан 3:16,18"), "3 2:15-2:15, 3 2:17-2:17");
    EXPECT_EQ(range("Йоан 3:16-18, 20, 2:4-5, 7"), "3 2:15-2:17, 3 2:19-2:19, 3 1:3-1:4, 3 1:6-1:6");
    EXPECT_EQ(range("Gen 1.3,5"), "0 0:2-0:2, 0 0:4-0:4");
    EXPECT_EQ(range("Бит 1:30-2:3,5"), "0 0:29-1:2, 0 1:4-1:4");
    EXPECT_EQ(refusal("Йоан 3:16,99"), "Йоа 3 has 36 verses; there is no verse 99");
}

TEST_F(References, CommaMayStandBetweenChapterAndVerse)
{
    EXPECT_EQ(range("Мт 2,3,5"), "9 1:2-1:2, 9 1:4-1:4");
    EXPECT_EQ(range("Мт 1,24-2,3"), "9 0:23-1:2");
    EXPECT_EQ(range("Мт 1,3-2,8"), "9 0:2-1:7");
}

TEST_F(References, SemicolonAddsReferences)
{
    EXPECT_EQ(range("Йоан 3:16; Бит 1"), "3 2:15-2:15, 0 0:0-0:30 whole");
    EXPECT_EQ(range("Йоан 3:16;2:4 ; 1"), "3 2:15-2:15, 3 1:3-1:3, 3 0:0-0:50 whole");
    EXPECT_EQ(range("Йоан 3:16;"), "3 2:15-2:15");
    EXPECT_EQ(range("1 Царе 1:1; 2 Царе 1:2"), "5 0:0-0:0, 6 0:1-0:1");
    EXPECT_EQ(refusal("Йоан 3:16;;Бит 1"), "\"\" is not a reference");
    EXPECT_EQ(refusal("Йоан 3:16; Йуан 1"), "\"Йуан\" is not a book of the module (did you mean Йоан?)");
}

TEST_F(References, DashBetweenBooksTakesThoseBetweenThem)
{
    EXPECT_EQ(range("Йоан-1 Царе"), "3 0:0-2:35 whole, 4 0:0-1:9 whole, 5 0:0-1:35 whole");
    EXPECT_EQ(range("Gen \u2013 Isa"), "0 0:0-2:23 whole, 1 0:0-0:30 whole");
    EXPECT_EQ(refusal("Йоан-Битие"), "\"Йоан-Битие\" ends before it begins");
    EXPECT_EQ(refusal("Йоан-Йуан"), "\"Йуан\" is not a book of the module (did you mean Йоан?)");
}

TEST_F(References, InvalidUtf8IsRefused)
{
    EXPECT_EQ(refusal("\xFF\xFE 1"), "\"\uFFFD\uFFFD\" is not a book of the module");
}
