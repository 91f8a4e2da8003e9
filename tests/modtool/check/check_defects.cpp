#include "check_defects.h"

namespace check_test {

namespace {

using namespace std::string_literals;
using test_support::cp1251;
using test_support::smallModule;

const std::string god = cp1251("Бог"), earth = cp1251("земя"), said = cp1251("рече");

ModuleFiles without(const std::string& name)
{
    ModuleFiles files = smallModule();
    files.bytes.erase(name);
    return files;
}

ModuleFiles withAppended(const std::string& name, const std::string& bytes)
{
    ModuleFiles files = smallModule();
    files.bytes[name] += bytes;
    return files;
}

ModuleFiles withCut(const std::string& name, std::size_t byteCount)
{
    ModuleFiles files = smallModule();
    files.bytes[name].resize(files.bytes[name].size() - byteCount);
    return files;
}

ModuleFiles withLast(const std::string& name, std::size_t value)
{
    ModuleFiles files = withCut(name, 4);
    files.bytes[name] += littleEndian(value, 4);
    return files;
}

ModuleFiles withTitles(const std::string& utf8) { return withFile("BibleTitles.txt", cp1251(utf8)); }

const std::string titleLines = "\nПърва книга\nВтора книга\nБитие\nИзход\nБит\nИзх\n";

/// A third book without chapters.
ModuleFiles emptyBook()
{
    ModuleFiles files = withTitles("3 0 1 2\nПърва\nВтора\nТрета\nБитие\nИзход\nЛевит\nБит\nИзх\nЛев\n");
    files.bytes["BibleStructure.csv"] += "0\n";
    return files;
}

/// 65537 empty verses and no words.
ModuleFiles tooManyVerses()
{
    ModuleFiles files = withVerses(std::vector<std::string>(65537));
    files.bytes["BibleStructure.csv"] = "1 65536\n1 1\n";
    for (const char* name : {"WordList.txt", "WordPoint.bin", "Conc.bin", "ConcP.bin"})
        files.bytes[name] = "";
    return files;
}

/// The second verse shares the record of the first.
ModuleFiles sharedVerse()
{
    ModuleFiles files = withWords({{god, {1, 2}}, {earth, {3}}, {said, {1, 2}}});
    const ModuleFiles texts = withVerses({"Бог рече", "земя", ""});
    files.bytes["CompactText.bin"] = texts.bytes.at("CompactText.bin");
    files.bytes["CompactPoint.bin"] = littleEndian(0, 4) + texts.bytes.at("CompactPoint.bin");
    return files;
}

/// The records of the first two verses are swapped.
ModuleFiles verseOrder()
{
    ModuleFiles files = withVerses({"земя", "Бог рече", "рече Бог", ""});
    files.bytes["CompactPoint.bin"] =
        littleEndian(6, 4) + littleEndian(0, 4) + littleEndian(16, 4) + littleEndian(26, 4);
    return files;
}

ModuleFiles sharedEntry()
{
    ModuleFiles files = smallModule();
    files.bytes["Conc.bin"].resize(2 * 5);
    files.bytes["ConcP.bin"] = littleEndian(0, 4) + littleEndian(3, 4) + littleEndian(0, 4);
    return files;
}

ModuleFiles longWord()
{
    std::string word;
    for (int i = 0; i < 39; ++i)
        word += "ж";
    ModuleFiles files = test_support::makeModule("Проба", {{0, "Битие", {{"Бог", word + "ж"}}}});
    files.bytes["_Info_.txt"] = smallModule().bytes["_Info_.txt"];
    return files;
}

std::string longWordFinding()
{
    std::string word;
    for (int i = 0; i < 40; ++i)
        word += "ж";
    return "word-too-long (1): WordList.txt:2: " + word;
}

std::string repeated(const std::string& text, int count)
{
    std::string all;
    for (int i = 0; i < count; ++i)
        all += text;
    return all;
}

std::vector<Defect> fileDefects()
{
    return {
        {without("_Diff_.txt"), "file-missing (1): _Diff_.txt"},
        {without("BibleTitles.txt"), "file-missing (1): BibleTitles.txt"},
        {without("CompactText.bin"), "file-missing (1): CompactText.bin"},
        {without("WordList.txt"), "file-missing (1): WordList.txt"},
        {without("ConcP.bin"), "file-missing (1): ConcP.bin"},
        {withAppended("ConcP.bin", "\x01"), "file-partial-record (1): ConcP.bin: 13 bytes"},
        {without("_Info_.txt"), "info-missing (1): _Info_.txt"},
        {withFile("_Info_.txt", "A\n\nC\nD\n"), "info-title (1): _Info_.txt:2"},
        {withFile("_Info_.txt", "A\nB\nC\n" + std::string(256, 'x') + "\nD\n"),
         "info-long-line (1): _Info_.txt:4"},
        {withFile("_Info_.txt", "A\nB\nC\nD\x98\n"), "info-bytes (1): _Info_.txt:4"},
        {withFile("_Info_.txt", "A\nB\nC\n"), "info-copyright (1): _Info_.txt"},
        {withTitles("x"), "titles-malformed (1): BibleTitles.txt"},
        {withTitles("2 0"), "titles-malformed (1): BibleTitles.txt"},
        {withTitles("2 0 1\nA\nB\nC\nD\nE"), "titles-empty (1): Exod, abbreviation"},
        {withTitles("2 0 1\n" + std::string(256, 'A') + "\nB\nC\nD\nE\nF"),
         "titles-long (1): Gen, full title: " + std::string(40, 'A') + "..."},
        {withTitles("2 0 1\nA\x01\nB\nC\nD\nE\nF"), "titles-bytes (1): Gen, full title: A\\x01"},
        {withTitles("2 0 1\nA\nB\nC\nD\nE\nE"), "titles-repeated (1): Exod, abbreviation: E"},
        {withTitles("2 0 1\nA\nB\nC\nD\nE\nF\nG\n"), "titles-surplus (1): G"},
        {withTitles("0\n"), "books-none (1): BibleTitles.txt: 0"},
        {withTitles("78\n"), "books-too-many (1): BibleTitles.txt: 78"},
        {withTitles("2 0 77" + titleLines), "book-number-unknown (1): book 2: 77"},
        {withTitles("2 0 -1" + titleLines), "book-number-unknown (1): book 2: -1"},
        {withTitles("2 0 0" + titleLines), "book-number-repeated (1): Gen: 0"},
    };
}

std::vector<Defect> structureDefects()
{
    return {
        {withFile("BibleStructure.csv", "2 2 1\n1\n"), "structure-malformed (1): Exod"},
        {withFile("BibleStructure.csv", "2 2 1,1 1\n"), "structure-malformed (1): Exod"},
        {withFile("BibleStructure.csv", "4000000000 1"), "structure-malformed (1): Gen"},
        {withAppended("BibleStructure.csv", "7 7\n"), "structure-surplus (1): 7 7"},
        {emptyBook(), "structure-empty-book (1): Lev"},
        {withFile("BibleStructure.csv", "3 2 0 1\n1 1\n"), "structure-empty-chapter (1): Gen 2"},
        {tooManyVerses(), "structure-too-many-verses (1): 65537"},
        {withFile("_Diff_.txt", "1 2 x"), "diff-malformed (1): 1 2 x"},
        {withFile("_Diff_.txt", "1 1 1 0 1"), "diff-idle (1): 1 1 1 0 1"},
        {withFile("_Diff_.txt", "5 2 1 0 1"), "diff-idle (1): 5 2 1 0 1"},
        {withFile("_Diff_.txt", "1 2 1 0 0"), "diff-idle (1): 1 2 1 0 0"},
        {withFile("_Diff_.txt", "1 2 1 1 0"), "diff-not-back (1): Gen 2: 1"},
        {withTitles("2 30 1" + titleLines), "diff-outside (1): Obad 2: 1"},
    };
}

ModuleFiles byte98()
{
    ModuleFiles files = withFirstVerse("Бог рече?");
    std::string& text = files.bytes["CompactText.bin"];
    text[text.find('?')] = '\x98';
    return files;
}

std::vector<Defect> textDefects()
{
    return {
        {withCut("CompactPoint.bin", 4), "points-short (1): 3 / 4"},
        {withAppended("CompactPoint.bin", littleEndian(26, 4)), "points-surplus (1): 5 / 4"},
        {withLast("CompactPoint.bin", 1000), "text-offset (1): Exod 1:1: 1000 / 28"},
        {withLast("CompactPoint.bin", 27), "text-offset (1): Exod 1:1: 27 / 28"},
        {withLast("CompactPoint.bin", 0xFFFFFFFF), "text-offset (1): Exod 1:1: 4294967295 / 28"},
        {sharedVerse(), "text-overlap (1): Gen 1:2"},
        {withAppended("CompactText.bin", "\0"s), "text-unreachable (1): CompactText.bin: 28-28"},
        {verseOrder(), "text-order (1): Gen 1:2"},
        {byte98(), "text-byte-98 (1): Gen 1:1"},
        {withFirstVerse("Бог рече\x01"), "text-control (1): Gen 1:1"},
        {withFirstVerse("Бог рече \u00AD"), "text-soft-hyphen (1): Gen 1:1"},
        {withFirstVerse("Бог  рече"), "text-blanks (1): Gen 1:1"},
        {withFirstVerse("Бог рече "), "text-blanks (1): Gen 1:1"},
    };
}

std::vector<Defect> markupDefects()
{
    return {
        {withFirstVerse("Бог < рече"), "markup-bracket (1): Gen 1:1: < рече"},
        {withFirstVerse("Бог рече <"), "markup-bracket (1): Gen 1:1: <"},
        {withFirstVerse("<b>Бог рече"), "markup-unbalanced (1): Gen 1:1: <b>Бог рече"},
        {withFirstVerse("Бог</i> рече"), "markup-unbalanced (1): Gen 1:1: </i>"},
        {withFirstVerse("<b><i>Бог</b></i> рече"), "markup-unbalanced (2): Gen 1:1: </b>; Gen 1:1: </i>"},
        {withFirstVerse(repeated("<b>", 17) + "Бог рече" + repeated("</b>", 17)),
         "markup-deep (1): Gen 1:1: <b>"},
        {withFirstVerse("<blink>Бог</blink> рече"), "markup-unknown-tag (1): Gen 1:1: <blink>"},
        {withFirstVerse("<P>Бог</P> рече"), "markup-block (1): Gen 1:1: <P>"},
        {withFirstVerse("<a href='x'>Бог</a> рече"), "markup-link (1): Gen 1:1: <a href='x'>"},
        {withFirstVerse("<a name=\"gotoChapter\" href=1>Бог</a> рече"),
         "markup-goto-chapter (1): Gen 1:1: <a name=\"gotoChapter\" href=1>"},
        {withFirstVerse("<img src=a.png>Бог рече"), "markup-image (1): Gen 1:1: <img src=a.png>"},
        {withFirstVerse("<span style='color:red'>Бог</span> рече"),
         "markup-style (1): Gen 1:1: <span style='color:red'>"},
        {withFirstVerse("<span onclick='x>y'>Бог</span> рече"),
         "markup-script (1): Gen 1:1: <span onclick='x>y'>"},
        {withFirstVerse("<!-- x -->Бог рече"), "markup-comment (1): Gen 1:1: <!-- x -->"},
        {withFirstVerse("Бог & рече"), "markup-entity (1): Gen 1:1: & рече"},
        {withFirstVerse("Бог &#; рече"), "markup-entity (1): Gen 1:1: &#;"},
        {withFirstVerse("Бог &alpha; рече"), "markup-foreign-entity (1): Gen 1:1: &alpha;"},
    };
}

std::vector<Defect> wordDefects()
{
    return {
        {longWord(), longWordFinding()},
        {withWords({{"", {}}, {god, {1, 3}}, {earth, {2}}, {said, {1, 3}}}),
         "word-empty (1): WordList.txt:1"},
        {withWords({{god, {1, 3}}, {earth, {2}}, {said + '\0', {1, 3}}}),
         "word-bytes (1): WordList.txt:3: рече"},
        {withFile("WordList.txt", god + "\r\n" + earth + "\r\n" + said + "\n"),
         "word-line-end (1): WordList.txt:3: рече"},
        {withWords({{god, {1, 3}}, {said, {1, 3}}, {earth, {2}}}), "words-unsorted (1): рече, земя"},
        {withWords({{god, {1, 3}}, {cp1251("бог"), {1, 3}}, {earth, {2}}, {said, {1, 3}}}),
         "words-repeated (1): бог"},
        {withVerses({"Бог рече", "земя нова", "рече Бог", ""}), "word-missing (1): нова: Gen 1:2"},
        {withWords({{god, {1, 3}}, {earth, {2}}, {said, {1, 3}}, {cp1251("яд"), {}}}), "word-unused (1): яд"},
        {withWords({{god, {1, 3}}, {earth, {2}}, {said, {1, 3}}, {cp1251("яд"), {4}}}),
         "word-unused (1): яд"},
        {without("WordPoint.bin"), "word-points-missing (1): WordPoint.bin"},
        {withCut("WordPoint.bin", 4), "word-points-count (1): 2 / 3"},
        {withAppended("WordPoint.bin", littleEndian(0, 4)), "word-points-count (1): 4 / 3"},
        {withLast("WordPoint.bin", 12), "word-points-offset (1): рече: 12 / 11"},
    };
}

std::vector<Defect> concordanceDefects()
{
    return {
        {withCut("ConcP.bin", 4), "conc-points-short (1): 2 / 3"},
        {withAppended("ConcP.bin", littleEndian(0, 4)), "conc-points-surplus (1): 4 / 3"},
        {withLast("ConcP.bin", 1000), "conc-offset (1): рече: 1000 / 8"},
        {withCut("Conc.bin", 2), "conc-offset (1): рече: 5 / 7"},
        {sharedEntry(), "conc-overlap (1): word 3"},
        {withAppended("Conc.bin", littleEndian(0, 2)), "conc-unreachable (1): Conc.bin: 8-8"},
        {withWords({{god, {1, 3}}, {earth, {2, 5}}, {said, {1, 3}}}), "conc-verse-number (1): земя: 5"},
        {withWords({{god, {1, 3}}, {earth, {0, 2}}, {said, {1, 3}}}), "conc-verse-number (1): земя: 0"},
        {withWords({{god, {3, 1}}, {earth, {2}}, {said, {1, 3}}}), "conc-order (1): Бог"},
        {withWords({{god, {1, 3, 3}}, {earth, {2}}, {said, {1, 3}}}), "conc-repeated (1): Бог"},
        {withWords({{god, {3}}, {earth, {2}}, {said, {1}}}),
         "conc-missing-verse (2): Бог: Gen 1:1; рече: Gen 2:1"},
        {withWords({{god, {1, 3, 4}}, {earth, {1, 2}}, {said, {1, 3}}}),
         "conc-extra-verse (2): Бог: Exod 1:1; земя: Gen 1:1"},
    };
}

} // namespace

std::vector<Defect> allDefects()
{
    std::vector<Defect> all;
    for (const auto& some : {fileDefects(), structureDefects(), textDefects(), markupDefects(), wordDefects(),
                             concordanceDefects()})
        all.insert(all.end(), some.begin(), some.end());
    return all;
}

} // namespace check_test
