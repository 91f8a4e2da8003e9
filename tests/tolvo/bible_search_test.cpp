// The search of a translation: the kind of search, what a hit is, what remains in the list of results.

#include "bible_search_fixture.h"
#include "thrown.h"

namespace {

using namespace Kedrin::Tolvo;
using test_support::Book;
using test_support::makeModule;
using test_support::messageOf;
using test_support::ModuleFiles;
using test_support::smallModule;

class BibleSearch : public BibleSearchFixture
{
};

const Places noPlaces;
const std::string rejected = "Whole words search may be only case insensitive";

TEST_F(BibleSearch, WholeWordWithCaseIsRejectedAndTheResultStays)
{
    load(smallModule());
    EXPECT_EQ(messageOf<std::logic_error>([&] { bible->search("a", true, true, result); }), rejected);
    EXPECT_EQ(placesOf(result), Places{"9.9.9"});
    EXPECT_EQ(messageOf<std::logic_error>([&] { bible->search("", true, true, result); }), rejected);
    EXPECT_EQ(placesOf(result), Places{"9.9.9"});
}

TEST_F(BibleSearch, RejectionIsALogicErrorOfItsOwnAndNotOutOfRange)
{
    load(smallModule());
    try {
        bible->search("a", true, true, result);
        FAIL() << "not rejected";
    } catch (const std::logic_error& ex) {
        EXPECT_TRUE(typeid(ex) == typeid(std::logic_error));
    }
}

TEST_F(BibleSearch, EveryAcceptedSearchClearsTheResult)
{
    load(smallModule());
    EXPECT_EQ(part("няма"), noPlaces);
    result.emplace_back(9, 9, 9, true);
    EXPECT_EQ(exactPart("няма"), noPlaces);
    result.emplace_back(9, 9, 9, true);
    EXPECT_EQ(word("няма"), noPlaces);
}

TEST_F(BibleSearch, EmptyPartIsInEveryVerse)
{
    load(smallModule());
    const Places all = {"0.0.0", "0.0.1", "0.1.0", "1.0.0"};
    EXPECT_EQ(part(""), all);
    EXPECT_EQ(exactPart(""), all);
}

TEST_F(BibleSearch, EmptyWordIsNoWord)
{
    load(smallModule());
    EXPECT_EQ(word(""), noPlaces);
}

TEST_F(BibleSearch, EmptyWordIsFoundWhereTheListHoldsOne)
{
    ModuleFiles files = smallModule();
    files.bytes["WordList.txt"] = "\r\n\xC1\xEE\xE3\r\n\xE7\xE5\xEC\xFF\r\n"; // "", "Бог", "земя"
    load(files);
    EXPECT_EQ(word(""), (Places{"0.0.0", "0.1.0"})); // the first entry of the concordance
}

TEST_F(BibleSearch, WordTypedInOtherCaseFindsTheSameVerses)
{
    loadVerses({"Словото беше у Бога", "Word and слово", "СЛОВО"});
    EXPECT_EQ(word("слово"), (Places{"4.0.1", "4.0.2"}));
    EXPECT_EQ(word("СЛОВО"), word("слово"));
    EXPECT_EQ(word("сЛоВо"), word("слово"));
    EXPECT_EQ(word("wORD"), Places{"4.0.1"});
}

TEST_F(BibleSearch, PartIsFoundInsideALongerWordAndTheWordIsNot)
{
    loadVerses({"Словото беше у Бога", "Бог"});
    EXPECT_EQ(part("бог"), (Places{"4.0.0", "4.0.1"}));
    EXPECT_EQ(word("бог"), Places{"4.0.1"});
}

TEST_F(BibleSearch, ExactPartTellsCaseAndTheOtherDoesNot)
{
    loadVerses({"В началото", "в Началото", "начало"});
    EXPECT_EQ(exactPart("Начало"), Places{"4.0.1"});
    EXPECT_EQ(exactPart("начало"), (Places{"4.0.0", "4.0.2"}));
    EXPECT_EQ(part("НАЧАЛО"), (Places{"4.0.0", "4.0.1", "4.0.2"}));
}

TEST_F(BibleSearch, CaseOfYoIsAlwaysTold)
{
    loadVerses({"ёлка", "Ёлка"});
    EXPECT_EQ(part("ёл"), Places{"4.0.0"});
    EXPECT_EQ(part("ЁЛ"), Places{"4.0.1"});
}

TEST_F(BibleSearch, TextIsNeitherTrimmedNorSplit)
{
    loadVerses({"два стиха", "два  стиха", "стиха два"});
    EXPECT_EQ(part("два стиха"), Places{"4.0.0"});
    EXPECT_EQ(part(" два"), Places{"4.0.2"});
    EXPECT_EQ(word("два стиха"), noPlaces);
    EXPECT_EQ(word(" два"), noPlaces);
    EXPECT_EQ(word("два,"), noPlaces);
}

TEST_F(BibleSearch, VerseIsFoundOnceHoweverOftenItHoldsThePart)
{
    loadVerses({"ааа аа а", "б"});
    EXPECT_EQ(part("а"), Places{"4.0.0"});
    EXPECT_EQ(exactPart("а"), Places{"4.0.0"});
}

TEST_F(BibleSearch, PartAcrossTwoVersesIsNotFound)
{
    loadVerses({"край", "начало"});
    EXPECT_EQ(part("йн"), noPlaces);
    EXPECT_EQ(part("начало"), Places{"4.0.1"});
    EXPECT_EQ(exactPart(""), (Places{"4.0.0", "4.0.1"}));
}

// The part begins at the end of the first verse and goes on over the length bytes; the second verse is that part.
TEST_F(BibleSearch, PartAcrossABorderDoesNotHideTheNextOne)
{
    loadVerses({"xa", std::string("a\x04\0a", 4)});
    bible->search(std::string("a\x04\0a", 4), false, true, result);
    EXPECT_EQ(placesOf(result), Places{"4.0.1"});
}

TEST_F(BibleSearch, RecordsMayOverlapAndStandInAnyOrder)
{
    ModuleFiles files = smallModule();
    files.bytes["CompactText.bin"] = std::string("\x06\0ab\x01\0ca\x02\0bc", 12); // "ab.ca", in it "c"; "bc"
    files.bytes["CompactPoint.bin"] = std::string("\x08\0\0\0\0\0\0\0\4\0\0\0\0\0\0\0", 16);
    load(files);
    bible->search("b", false, true, result);
    EXPECT_EQ(placesOf(result), (Places{"0.0.0", "0.0.1", "1.0.0"}));
    bible->search("ca", false, true, result);
    EXPECT_EQ(placesOf(result), (Places{"0.0.1", "1.0.0"}));
    bible->search("c", false, true, result);
    EXPECT_EQ(placesOf(result), (Places{"0.0.0", "0.0.1", "0.1.0", "1.0.0"}));
}

// The bytes between two texts are the length of the second: 'A' and a zero byte for a verse of 65 bytes.
TEST_F(BibleSearch, LengthBytesOfARecordAreNotText)
{
    loadVerses({"x", std::string(0x41, 'y'), std::string(0x4141, 'z')});
    EXPECT_EQ(exactPart("A"), noPlaces);
    EXPECT_EQ(part("xa"), noPlaces);
    EXPECT_EQ(part("ay"), noPlaces);
    EXPECT_EQ(exactPart("AAz"), noPlaces);
}

TEST_F(BibleSearch, ZeroByteEndsTextAndNeedleWhereCaseIsIgnored)
{
    loadVerses({std::string("a\0b", 3), "ab"});
    bible->search("b", false, false, result);
    EXPECT_EQ(placesOf(result), Places{"4.0.1"});
    bible->search(std::string("a\0x", 3), false, false, result);
    EXPECT_EQ(placesOf(result), (Places{"4.0.0", "4.0.1"}));
    bible->search(std::string("\0x", 2), false, false, result);
    EXPECT_EQ(result.size(), 2u); // an empty needle
}

TEST_F(BibleSearch, ZeroByteFarFromThePartEndsTheText)
{
    for (const std::size_t length : {1u, 60u, 64u, 65u, 200u, 3000u, 9000u}) {
        const std::string filling(length, '-');
        loadVerses({"b" + filling + '\0', '\0' + filling + "b", filling + '\0' + filling + "b" + filling,
                    filling + "b" + filling + '\0', filling + '\0' + "b", filling + "b" + '\0'});
        EXPECT_EQ(part("b"), (Places{"4.0.0", "4.0.3", "4.0.5"})) << length;
        EXPECT_EQ(exactPart("b").size(), 6u) << length;
    }
}

TEST_F(BibleSearch, ZeroByteIsACharacterWhereCaseCounts)
{
    loadVerses({std::string("a\0b", 3), "ab"});
    bible->search("b", false, true, result);
    EXPECT_EQ(placesOf(result), (Places{"4.0.0", "4.0.1"}));
    bible->search(std::string("\0b", 2), false, true, result);
    EXPECT_EQ(placesOf(result), Places{"4.0.0"});
}

TEST_F(BibleSearch, ResultsAreGlobalReferencesInTheModulesOwnOrder)
{
    load(makeModule("Късни", {Book{51, "Марк", {{"аз", "ти"}, {"аз"}}}, Book{50, "Матей", {{"ти", "аз"}}}}));
    const Places expected = {"51.0.0", "51.1.0", "50.0.1"};
    EXPECT_EQ(part("аз"), expected);
    EXPECT_EQ(exactPart("аз"), expected);
    EXPECT_EQ(word("аз"), expected);
}

TEST_F(BibleSearch, ResultsFollowTheDifferencesOfNumbering)
{
    const Book psalms{18, "Псалми", {{"аз", "аз"}, {"аз", "аз", "аз"}, {"аз"}}};
    load(makeModule("Превод", {psalms}, "19 2 1 1 -1"));
    const Places expected = {"18.0.0", "18.0.1", "18.2.4294967295", "18.2.0", "18.2.1", "18.2.0"};
    EXPECT_EQ(part("аз"), expected);
    EXPECT_EQ(word("аз"), expected);
}

TEST_F(BibleSearch, WordGivesTheConcordanceOrderAndItsRepetitions)
{
    ModuleFiles files = smallModule();
    files.bytes["Conc.bin"] = std::string("\x05\x00\x04\x00\x02\x00\x03\x00\x02\x00\x01\x00", 12);
    files.bytes["ConcP.bin"] = std::string(12, '\0');
    load(files);
    EXPECT_EQ(word("бог"), (Places{"1.0.0", "0.0.1", "0.1.0", "0.0.1", "0.0.0"}));
}

TEST_F(BibleSearch, EmptyChaptersAndBooksAreCountedAsTheStructureDoes)
{
    // chapters of 1, 0, 2 verses; a book without verses; a book of 2 verses
    load(makeModule("Превод", {Book{0, "Битие", {{"аз"}, {}, {"аз", "аз"}}}, Book{1, "Изход", {{}}},
                               Book{2, "Левит", {{"аз", "аз"}}}}));
    // the first verse after an empty chapter or book has the reference of the latter
    EXPECT_EQ(part("аз"), (Places{"0.0.0", "0.1.0", "0.2.1", "1.0.0", "2.0.1"}));
    EXPECT_EQ(word("аз"), part("аз"));
}

TEST_F(BibleSearch, EmptyChaptersWithoutNumberDoNotMakeAWordSlow)
{
    ModuleFiles files = makeModule("Превод", {Book{0, "Битие", {{"аз", "аз"}}}});
    constexpr int emptyCount = 2000000;
    std::string structure = std::to_string(emptyCount + 2) + " 1";
    for (int i = 0; i < emptyCount; ++i)
        structure += " 0";
    files.bytes["BibleStructure.csv"] = structure + " 1\n";
    constexpr std::size_t hitCount = 30000; // first verse, second verse, first verse, ...
    std::string entry = std::string("\x30\x75", 2);
    for (std::size_t i = 0; i < hitCount; ++i)
        entry += std::string(i % 2 == 0 ? "\x01\x00" : "\x02\x00", 2);
    files.bytes["Conc.bin"] = entry;
    files.bytes["ConcP.bin"] = std::string(4, '\0');
    load(files);
    const Places places = word("аз");
    ASSERT_EQ(places.size(), hitCount);
    EXPECT_EQ(Places(places.end() - 2, places.end()), (Places{"0.0.0", "0.1.0"}));
}

TEST_F(BibleSearch, SecondSearchOfTheSameTranslationStartsAnew)
{
    load(smallModule());
    EXPECT_EQ(part("рече"), part("рече"));
    EXPECT_EQ(part("земя"), Places{"0.0.1"});
}

} // namespace
