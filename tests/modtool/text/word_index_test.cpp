// The words of a module and the verses that contain them, compared with a simple, slow implementation.

#include "word_index.h"

#include "build_fixture.h"
#include "cp1251.h"
#include "module_files.h"
#include "tolvo_bible/word_list.h"
#include "ut_utils.h"

#include <unicode/brkiter.h>
#include <unicode/uchar.h>

#include <algorithm>
#include <random>
#include <set>

namespace {

using Kedrin::ModTool::CWordIndexer;
using Kedrin::ModTool::WordIndex;
using test_support::cp1251;

class Words : public build_test::Building
{
protected:
    std::vector<std::string> wordsOf(const std::string& verses) const
    {
        std::string lines;
        unsigned int number = 0;
        std::istringstream text(verses);
        for (std::string line; std::getline(text, line);)
            lines += "Gen\t1\t" + std::to_string(++number) + '\t' + line + '\n';
        EXPECT_EQ(build(lines).code, 0);
        return words();
    }
    using List = std::vector<std::string>;
};

TEST_F(Words, EndAtUnicodeBoundaries)
{
    EXPECT_EQ(wordsOf("«Бог», рече: (ден)!"), (List{"Бог", "ден", "рече"}));
    EXPECT_EQ(wordsOf("по-добре 1-ви"), (List{"1", "ви", "добре", "по"}));
    EXPECT_EQ(wordsOf("can't don’t O'Neil"), (List{"can't", "don’t", "O'Neil"}));
    EXPECT_EQ(wordsOf("3.14 1,000 a.b snake_case"), (List{"1,000", "3.14", "a.b", "snake_case"}));
}

TEST_F(Words, HoldALetterOrADigit) { EXPECT_EQ(wordsOf("— № 5 § * … _ ' а"), (List{"5", "а"})); }

TEST_F(Words, ThatDifferInCaseAreOneSpeltAsMostOften)
{
    EXPECT_EQ(wordsOf("Бог бог БОГ\nбог"), (List{"бог"}));
    EXPECT_EQ(wordsOf("Lord LORD LORD lord"), (List{"LORD"}));
}

TEST_F(Words, WithAndWithoutACapitalYoAreTwo) // the engine's comparison folds only the letters from А to я
{
    EXPECT_EQ(wordsOf("Ёлка ёлка\nёлка"), (List{"Ёлка", "ёлка"}));
}

TEST_F(Words, EquallyFrequentSpellingsAreSpeltAsMetFirst)
{
    EXPECT_EQ(wordsOf("БОГ\nБог\nбог"), (List{"БОГ"}));
    EXPECT_EQ(wordsOf("бог Бог\nБог бог"), (List{"бог"}));
}

TEST_F(Words, AreFoundAfterSubstitution)
{
    EXPECT_EQ(build("Gen\t1\t1\tCæsar café ca\u200Bfe\n", {"--substitute"}).code, 0);
    EXPECT_EQ(words(), (List{"Caesar", "cafe"}));
}

TEST_F(Words, Of39BytesAreListedAndLongerOnesCountedAndLeftOutOfTheList)
{
    EXPECT_EQ(wordsOf(std::string(39, 'x')), (List{std::string(39, 'x')}));
    const std::string word(40, 'y'), other(4000, 'z');
    const auto result =
        build("Gen\t1\t1\tа\nGen\t2\t1\tб " + word + ' ' + word + "\nGen\t2\t2\t" + other + "\n");
    ASSERT_EQ(result.code, 0) << result.err;
    EXPECT_EQ(words(), (List{"а", "б"}));
    EXPECT_EQ(verse(0, 1, 0), "б " + word + ' ' + word);
    EXPECT_NE(result.out.find("\nwords         2 distinct, 2 in total\n"), std::string::npos) << result.out;
    EXPECT_NE(result.out.find(
                  "\n"
                  "left out      3 words of more than 39 bytes from the word list; their verses are kept, "
                  "first at Gen 2:1\n"),
              std::string::npos)
        << result.out;
    EXPECT_EQ(build_test::run({"check", made()}).code, 0) << build_test::run({"check", made()}).out;
}

TEST_F(Words, TooLongForTheListAreFoundInsideWordsOnly)
{
    const std::string word = "Unendlich" + std::string(40, 'y');
    ASSERT_EQ(build("Gen\t1\t1\tа " + word + "\n").code, 0);
    const Kedrin::Tolvo::CBible bible(made());
    std::vector<Kedrin::Tolvo::CRef> hits;
    bible.search(word, true, false, hits);
    EXPECT_EQ(hits.size(), 0u);
    bible.search("unendlichyy", false, false, hits);
    EXPECT_EQ(hits.size(), 1u);
    bible.search(word, false, true, hits);
    EXPECT_EQ(hits.size(), 1u);
}

TEST_F(Words, MayAllBeTooLong)
{
    const auto result = build("Gen\t1\t1\t" + std::string(40, 'y') + "\n");
    ASSERT_EQ(result.code, 0) << result.err;
    EXPECT_EQ(words(), List());
    EXPECT_EQ(verse(0, 0, 0), std::string(40, 'y'));
    EXPECT_EQ(build_test::run({"check", made()}).code, 0) << build_test::run({"check", made()}).out;
}

TEST_F(Words, CanBeFoundWithTheEngine)
{
    ASSERT_EQ(build("Gen\t1\t1\tБог и бог\nGen\t1\t2\tи\nJude\t1\t1\tБОГ\n").code, 0);
    const Kedrin::Tolvo::CBible bible(made());
    std::vector<Kedrin::Tolvo::CRef> hits;
    bible.search(cp1251("Бог"), true, false, hits);
    ASSERT_EQ(hits.size(), 2u);
    EXPECT_EQ(hits[0].toString(&bible), cp1251("Бит 1:1"));
    EXPECT_EQ(hits[1].toString(&bible), cp1251("Юда 1:1"));
}

using Verses = std::vector<std::string>;
using Found = std::map<std::string, std::set<unsigned int>>; ///< folded word to its verses

std::string folded(std::string word)
{
    std::transform(word.begin(), word.end(), word.begin(), ut::cyr_chrupcase);
    return word;
}

/// The complete verse is passed to the Unicode library, including spaces.
Found plainWords(const Verses& verses)
{
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<icu::BreakIterator> boundaries(
        icu::BreakIterator::createWordInstance(icu::Locale::getRoot(), status));
    Found found;
    for (unsigned int verseNum = 0; verseNum < verses.size(); ++verseNum) {
        const std::u16string units = ut::from_cp1251(verses[verseNum]);
        const icu::UnicodeString text(units.data(), static_cast<int32_t>(units.size()));
        boundaries->setText(text);
        for (int32_t begin = boundaries->first(), end = boundaries->next(); end != icu::BreakIterator::DONE;
             begin = end, end = boundaries->next())
            if (std::any_of(units.begin() + begin, units.begin() + end,
                            [](char16_t c) { return u_isalnum(c); }))
                found[folded(verses[verseNum].substr(static_cast<std::size_t>(begin),
                                                     static_cast<std::size_t>(end - begin)))]
                    .insert(verseNum);
    }
    return found;
}

Found indexedWords(const Verses& verses, WordIndex& index)
{
    CWordIndexer indexer;
    for (unsigned int verseNum = 0; verseNum < verses.size(); ++verseNum)
        indexer.add(verses[verseNum], verseNum);
    index = indexer.finish();
    Found found;
    for (std::size_t word = 0; word < index.words.size(); ++word) {
        const auto begin = index.verseNums.begin() + index.firstEntry[word];
        const auto end = index.verseNums.begin() + index.firstEntry[word + 1];
        EXPECT_TRUE(std::is_sorted(begin, end));
        auto& known = found[folded(index.words[word])];
        EXPECT_TRUE(known.empty()) << "twice: " << index.words[word];
        known.insert(begin, end);
        EXPECT_EQ(known.size(), static_cast<std::size_t>(end - begin));
    }
    return found;
}

TEST(WordIndex, AgreesWithASimpleOneOnGeneratedTexts)
{
    const std::string alphabet = cp1251("абАБёЁjЈIі19'’.,:;-–—_\"«»&<>№ ") + "  ";
    std::mt19937 random(20240117);
    for (unsigned int round = 0; round < 400; ++round) {
        Verses verses(1 + random() % 6);
        for (std::string& verse : verses)
            for (std::size_t length = random() % 40; length > 0; --length) {
                const char c = alphabet[random() % alphabet.size()];
                if (c != ' ' || (!verse.empty() && verse.back() != ' '))
                    verse += c;
            }
        WordIndex index;
        ASSERT_EQ(indexedWords(verses, index), plainWords(verses)) << "round " << round;
        ASSERT_TRUE(
            std::is_sorted(index.words.begin(), index.words.end(), Kedrin::Tolvo::caseInsensitiveComp));
    }
}

/// Texts of few bytes are told apart by other code than long ones: each length, beside one that differs in its last byte
/// or is a byte shorter, with every byte in it.
TEST(WordIndex, TellsTextsOfEveryLengthApart)
{
    for (std::size_t length = 1; length <= 39; ++length) {
        const std::string word(length - 1, 'x');
        const Verses verses = {word + 'y', word + 'z', word, word + "z " + word + 'y',
                               ' ' + word + "y  " + word};
        WordIndex index;
        EXPECT_EQ(indexedWords(verses, index), plainWords(verses)) << length;
        EXPECT_EQ(index.occurrences, length == 1 ? 5u : 7u) << length;
    }
    for (unsigned int byte = 0; byte < 256; ++byte)
        for (std::size_t length = 0; length <= 17; ++length) {
            const std::string before(length, 'x');
            const Verses verses = {before + static_cast<char>(byte) + 'y', before + 'y', before};
            WordIndex index;
            EXPECT_EQ(indexedWords(verses, index), plainWords(verses)) << byte << ' ' << length;
        }
}

/// Words of letters alone are found by other code than the rest.
TEST(WordIndex, AgreesWithASimpleOneOnAnyTwoBytesBesideLetters)
{
    for (unsigned int first = 0; first < 256; ++first) {
        Verses verses;
        for (unsigned int second = 0; second < 256; ++second) {
            const std::string bytes = {static_cast<char>(first), static_cast<char>(second)};
            if (bytes != "  ")
                verses.insert(verses.end(), {bytes, "Ab" + bytes, cp1251("Яа") + bytes, bytes + 'c',
                                             bytes.substr(0, 1) + 'x' + bytes.substr(1)});
        }
        WordIndex index;
        EXPECT_EQ(indexedWords(verses, index), plainWords(verses)) << first;
    }
}

TEST(WordIndex, OfNothingIsEmpty)
{
    CWordIndexer indexer;
    indexer.add("", 0);
    const WordIndex index = indexer.finish();
    EXPECT_TRUE(index.words.empty());
    EXPECT_EQ(index.firstEntry, std::vector<std::uint32_t>{0});
    EXPECT_EQ(index.occurrences, 0u);
}

} // namespace
