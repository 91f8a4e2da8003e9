#include "tolvo_bible/word_list.h"

#include "bad_file.h"
#include "read_watch.h"
#include "ut_utils.h"

#include <gmock/gmock.h>

#include <stdexcept>

namespace {

using namespace Kedrin::Tolvo;
using namespace std::string_literals;
using test_support::messageOf;
using test_support::TempFolder;

// "Авраам", "бог", "Бог" in Windows-1251
const std::string abraham = "\xC0\xE2\xF0\xE0\xE0\xEC";
const std::string smallGod = "\xE1\xEE\xE3";
const std::string god = "\xC1\xEE\xE3";

CWordList made(const std::string& text)
{
    const TempFolder folder;
    return CWordList(folder.write("f", text).c_str(), folder.file("no-such-point-file").c_str(), true);
}

std::vector<std::string> wordsOf(const std::string& text)
{
    const CWordList list = made(text);
    std::vector<std::string> words;
    for (unsigned int i = 0; i < list.count(); ++i)
        words.push_back(list[i]);
    return words;
}

using Words = std::vector<std::string>;

TEST(WordOrder, IsTheOneIgnoringCase)
{
    EXPECT_TRUE(caseInsensitiveComp("a", "B"));
    EXPECT_FALSE(caseInsensitiveComp("B", "a"));
    EXPECT_FALSE(caseInsensitiveComp(god, smallGod));
    EXPECT_FALSE(caseInsensitiveComp(smallGod, god));
    EXPECT_TRUE(caseInsensitiveComp("Zion", abraham));
    EXPECT_TRUE(caseInsensitiveComp("", "a"));
}

TEST(WordBeginning, IsComparedIgnoringCase)
{
    EXPECT_TRUE(caseInsensitiveBegins("Light", "lI"));
    EXPECT_TRUE(caseInsensitiveBegins(god, smallGod));
    EXPECT_TRUE(caseInsensitiveBegins(god, smallGod.substr(0, 2)));
    EXPECT_TRUE(caseInsensitiveBegins(god, ""));
    EXPECT_FALSE(caseInsensitiveBegins(god.substr(0, 2), smallGod)) << "the word is shorter";
    EXPECT_FALSE(caseInsensitiveBegins("Light", "ight"));
}

TEST(WordList, OfAnEmptyFileIsEmpty)
{
    const CWordList list = made("");
    EXPECT_EQ(list.count(), 0u);
    EXPECT_EQ(list.indexOf(""), -1);
    EXPECT_EQ(list.indexOf("a"), -1);
    EXPECT_EQ(messageOf<std::out_of_range>([&] { list[0]; }),
              "CWordList::operator [](): wordIndex out of range");
}

TEST(WordList, GivesWordsInTheOrderOfTheFile)
{
    EXPECT_EQ(wordsOf(abraham + "\r\n" + smallGod + "\r\n"), (Words{abraham, smallGod}));
    EXPECT_EQ(wordsOf("b\na\n"), (Words{"b", "a"}));
}

TEST(WordList, IndicesBeyondTheLastAreOutOfRange)
{
    const CWordList list = made("a\r\nb\r\n");
    EXPECT_EQ(list[1], "b");
    for (const unsigned int index : {2u, 4294967295u})
        EXPECT_EQ(messageOf<std::out_of_range>([&] { list[index]; }),
                  "CWordList::operator [](): wordIndex out of range");
}

TEST(WordList, FindsTheFirstOfWordsThatDifferInCase)
{
    const CWordList list = made(abraham + "\r\n" + smallGod + "\r\n" + god + "\r\n");
    EXPECT_EQ(list.indexOf("\xC1\xCE\xC3"), 1);
    EXPECT_EQ(list.indexOf(god), 1);
    EXPECT_EQ(list.indexOf(abraham), 0);
}

TEST(WordList, FindsNothingThatIsNotThere)
{
    const CWordList list = made("b\r\nd\r\n");
    for (const char* word : {"", "a", "c", "e", "bb", "ba"})
        EXPECT_EQ(list.indexOf(word), -1) << word;
}

TEST(WordList, FindsEveryWordOfALongList)
{
    std::string text;
    for (char first = 'a'; first <= 'z'; ++first)
        for (char second = 'a'; second <= 'z'; ++second)
            text += std::string{first, second} + "\r\n";
    const CWordList list = made(text);
    ASSERT_EQ(list.count(), 26u * 26u);
    for (unsigned int i = 0; i < list.count(); ++i)
        EXPECT_EQ(list.indexOf(list[i]), static_cast<int>(i));
}

TEST(WordListFile, TheLastLineNeedsNoEnd) { EXPECT_EQ(wordsOf("a\r\nb"), (Words{"a", "b"})); }

TEST(WordListFile, BothKindsOfLineEndsAreRemoved)
{
    EXPECT_EQ(wordsOf("a\nb\r\nc\r\r\n"), (Words{"a", "b", "c\r"}));
}

TEST(WordListFile, AnEmptyLineIsAnEmptyWord)
{
    EXPECT_EQ(wordsOf("\r\na\r\n\r\n"), (Words{"", "a", ""}));
    EXPECT_EQ(wordsOf("\n"), Words{""});
}

TEST(WordListFile, AWordEndsAtAZeroByte) { EXPECT_EQ(wordsOf("ab\0cd\r\ne\r\n"s), (Words{"ab", "e"})); }

// The limit is that of the line including its CR: words have up to 39 characters if lines end in CR LF.
TEST(WordListFile, ALineHasAtMostFortyCharacters)
{
    const std::string thirtyNine(39, 'x');
    const std::string forty(40, 'x');
    EXPECT_EQ(wordsOf("a\r\n" + thirtyNine + "\r\nz\r\n"), (Words{"a", thirtyNine, "z"}));
    EXPECT_EQ(wordsOf("a\n" + forty + "\nz\n"), (Words{"a", forty, "z"}));
}

TEST(WordListFile, ALongerLineEndsTheListBeforeIt)
{
    EXPECT_EQ(wordsOf("a\r\nb\r\n" + std::string(41, 'x') + "\nz\n"), (Words{"a", "b"}));
    EXPECT_EQ(wordsOf("a\r\n" + std::string(40, 'x') + "\r\nz\r\n"), Words{"a"});
    EXPECT_EQ(wordsOf(std::string(41, 'x') + "\nz\n"), Words{});
}

TEST(WordListFile, TheBoundHoldsForALastLineWithoutEndToo)
{
    EXPECT_EQ(wordsOf("a\n" + std::string(40, 'x')), (Words{"a", std::string(40, 'x')}));
    EXPECT_EQ(wordsOf("a\n" + std::string(41, 'x')), Words{"a"});
}

TEST(WordListFile, ThatCannotBeOpenedIsNamed)
{
    const TempFolder folder;
    for (const auto& bad : test_support::unopenableFiles(folder)) {
        const std::string text = "CWordList::CWordList(): error opening file " + bad.path;
        EXPECT_EQ(messageOf<std::ios_base::failure>([&] { CWordList list(bad.path.c_str(), "", true); }),
                  text)
            << bad.defect;
        EXPECT_EQ(messageOf<std::ios_base::failure>([&] { CWordList::ValidateFile(bad.path.c_str()); }), text)
            << bad.defect;
    }
}

TEST(WordListFile, WithoutAWordIsValid)
{
    const TempFolder folder;
    EXPECT_NO_THROW(CWordList::ValidateFile(folder.write("f", std::string(41, 'x')).c_str()));
}

TEST(WordListFile, ThatCannotBeReadToItsEndIsRefusedByTheProofToo)
{
    const TempFolder folder;
    const std::string path = folder.write("f", "a\r\n");
    const std::string text = "CWordList::CWordList(): error opening file " + path;
    test_support::ReadWatch watch;
    watch.breakDisk();
    EXPECT_EQ(messageOf<std::ios_base::failure>([&] { CWordList list(path.c_str(), "", true); }), text);
    EXPECT_EQ(messageOf<std::ios_base::failure>([&] { CWordList::ValidateFile(path.c_str()); }), text);
}

TEST(WordListFile, ThePointFileIsNotOpened)
{
    const TempFolder folder;
    const std::string list = folder.write("list", "a\r\n");
    for (const auto& bad : test_support::unopenableFiles(folder))
        EXPECT_EQ(CWordList(list.c_str(), bad.path.c_str(), true).count(), 1u) << bad.defect;
}

TEST(WordListDeathTest, AListThatStaysOnDiskIsRefusedByEndingTheProgram)
{
    const TempFolder folder;
    const std::string path = folder.write("list", "a\r\n");
    EXPECT_DEATH(
        CWordList(path.c_str(), "", false),
        testing::StartsWith("CWordList::CWordList() let out an exception that its contract does not name: "
                            "CWordList::CWordList(): loadIntoMem == false is not implemented yet\n"));
}

// The mode is refused before the file is opened.
TEST(WordListDeathTest, AListThatStaysOnDiskIsRefusedBeforeItsFileIsOpened)
{
    EXPECT_DEATH(CWordList("/nowhere/list", "", false), "loadIntoMem == false is not implemented yet");
}

TEST(WordListFile, SpoiledAnywhereItIsRead)
{
    test_support::walkSpoiled(abraham + "\r\n" + smallGod + "\r\n" + god + "\r\n" + std::string(39, 'x') +
                                  "\r\nz",
                              {}, test_support::walkWordList);
}

} // namespace
