#include "verify_written.h"

#include "cp1251.h"
#include "errors.h"
#include "escape.h"
#include "file_vector.h"
#include "global_books.h"
#include "letters.h"
#include "messages.h"
#include "module_data.h"
#include "module_format.h"
#include "text_encoder.h"
#include "tolvo_bible.h"

#include <algorithm>
#include <filesystem>

namespace Kedrin::ModTool {

namespace {

using namespace Kedrin::Tolvo;

[[noreturn]] void differ(const std::string& what) { throw CBuildError(what); }

/// The engine terminates the program if a file of a loaded module is too short, so sizes are checked first.
void checkSize(const std::string& folder, const char* name, std::size_t size)
{
    if (std::filesystem::file_size(folder + '/' + name) != size)
        differ(message("the size of %s", name));
}

/// The first `count` records of a file, which must have as many.
std::vector<std::uint32_t> recordsIn(const std::string& fileName, std::size_t count)
{
    ut::CFileVector<std::uint32_t> file(fileName.c_str());
    std::vector<std::uint32_t> records(count);
    for (std::size_t done = 0; done < count;)
        done += file.readRun(static_cast<unsigned int>(done), count - done, records.data() + done);
    return records;
}

void checkTextPoints(const std::string& folder, const ModuleData& module)
{
    checkSize(folder, textPointsFileName, module.verses.size() * pointBytes);
    const std::vector<std::uint32_t> points =
        recordsIn(folder + '/' + textPointsFileName, module.verses.size());
    std::size_t byteOffset = 0;
    for (unsigned int verseNum = 0; verseNum < module.verses.size(); ++verseNum) {
        if (points[verseNum] != byteOffset)
            differ(message("the start of the text of %s", positionInModule(module, verseNum)));
        byteOffset += verseLengthBytes + escapedSize(module.verse(verseNum));
    }
    checkSize(folder, textFileName, byteOffset);
}

/// Compares WordPoint.bin and ConcP.bin as raw records: the engine never opens the former, and reading verses
/// through ConcP.bin does not show that every offset is the one written.
void checkWordPoints(const std::string& folder, const WordIndex& index)
{
    constexpr std::size_t lineEndBytes = 2;
    checkSize(folder, wordPointsFileName, index.words.size() * pointBytes);
    checkSize(folder, concordancePointsFileName, index.words.size() * pointBytes);
    checkSize(folder, concordanceFileName,
              (index.words.size() + index.verseNums.size()) * concordanceNumberBytes);
    const std::vector<std::uint32_t> wordPoints =
        recordsIn(folder + '/' + wordPointsFileName, index.words.size());
    const std::vector<std::uint32_t> entryPoints =
        recordsIn(folder + '/' + concordancePointsFileName, index.words.size());
    std::size_t byteOffset = 0;
    for (unsigned int word = 0; word < index.words.size(); ++word) {
        const std::size_t entryOffset =
            index.firstEntry[word] + word; // each word's entry begins with a count
        if (wordPoints[word] != byteOffset || entryPoints[word] != entryOffset)
            differ(message("the start of the word %s", toUtf8(index.words[word])));
        byteOffset += index.words[word].size() + lineEndBytes;
    }
    checkSize(folder, wordListFileName, byteOffset);
}

void checkBooks(const std::string& folder, const ModuleData& module)
{
    const CTitles titles((folder + '/' + titlesFileName).c_str());
    if (titles.booksCount() != module.books.size())
        differ(tr("the number of books"));
    const CBibleStructure structure((folder + '/' + structureFileName).c_str(), titles.booksCount());
    for (unsigned int book = 0; book < titles.booksCount(); ++book) {
        const ModuleBook& wanted = module.books[book];
        const BookTitles& wantedTitles = module.bookTitles[book];
        if (titles.globalID(book) != wanted.globalID || titles.fullTitle(book) != wantedTitles.fullTitle ||
            titles.shortTitle(book) != wantedTitles.shortTitle ||
            titles.abbreviatedTitle(book) != wantedTitles.abbreviatedTitle)
            differ(message("the titles of %s", wanted.osis));
        if (structure.chaptersCount(book) != wanted.versesCount.size())
            differ(message("the chapters of %s", wanted.osis));
        for (unsigned int chapter = 0; chapter < wanted.versesCount.size(); ++chapter)
            if (structure.versesCount(book, chapter) != wanted.versesCount[chapter])
                differ(message("the verses of %s", wanted.osis + ' ' + std::to_string(chapter + 1)));
    }
}

/// @returns number of letters and digits of all verses
std::uint64_t checkVerses(const std::string& folder, const ModuleData& module)
{
    std::uint64_t letters = 0;
    CBibleText text((folder + '/' + textFileName).c_str(), (folder + '/' + textPointsFileName).c_str());
    CVerseCursor run(text, 0, static_cast<unsigned int>(module.verses.size()));
    while (run.next()) {
        const std::string verse = unescaped(run.text());
        if (verse != module.verse(run.verseNum()))
            differ(message("the text of %s", positionInModule(module, run.verseNum())));
        letters += countLettersOf1251(verse);
    }
    return letters;
}

void checkWords(const std::string& folder, const ModuleData& module)
{
    const CWordList list((folder + '/' + wordListFileName).c_str(),
                         (folder + '/' + wordPointsFileName).c_str(), true);
    CConc concordance((folder + '/' + concordanceFileName).c_str(),
                      (folder + '/' + concordancePointsFileName).c_str());
    const WordIndex& index = module.words;
    if (list.count() != index.words.size())
        differ(tr("the number of words"));
    std::vector<unsigned int> verseNums;
    for (unsigned int word = 0; word < list.count(); ++word) {
        if (list[word] != index.words[word] || list.indexOf(index.words[word]) != static_cast<int>(word))
            differ(message("the word %s", toUtf8(index.words[word])));
        concordance.readVersesFor(word, verseNums);
        const auto begin = index.verseNums.begin() + index.firstEntry[word];
        const auto end = index.verseNums.begin() + index.firstEntry[word + 1];
        if (!std::equal(verseNums.begin(), verseNums.end(), begin, end))
            differ(message("the verses of the word %s", toUtf8(index.words[word])));
    }
}

void checkInfo(const CBible& bible, const ModuleInfo& wanted)
{
    std::string copyright;
    for (const std::string& line : wanted.copyright)
        copyright += line + '\n';
    const CBibleInfo& info = *bible.info();
    if (info.fullTitle() != wanted.fullTitle || info.shortTitle() != wanted.shortTitle ||
        info.abbreveatedTitle() != wanted.abbreviatedTitle || info.copyright() != copyright)
        differ(tr("the titles of the module"));
}

bool isAt(const CRef& ref, unsigned int book, ChapterVerse position)
{
    return ref.bookID() == book && ref.chapter() == position.chapter && ref.verse() == position.verse;
}

void checkPositions(const CBible& bible, const ModuleData& module, unsigned int wanted)
{
    unsigned int roundTrips = 0;
    for (const VersePair& pair : module.versePairs)
        roundTrips += isAt(bible.toGlobal(CRef(pair.localBook, pair.local.chapter, pair.local.verse, false)),
                           pair.globalBook, pair.global) &&
                      isAt(bible.toLocal(CRef(pair.globalBook, pair.global.chapter, pair.global.verse, true)),
                           pair.localBook, pair.local);
    if (roundTrips != wanted)
        differ(tr("the positions of the verses"));
}

} // namespace

std::uint64_t checkWritten(const std::string& folder, const ModuleData& module, unsigned int roundTrips)
{
    try {
        checkTextPoints(folder, module);
        checkWordPoints(folder, module.words);
        checkBooks(folder, module);
        const std::uint64_t letters = checkVerses(folder, module);
        checkWords(folder, module);
        const CBible bible(folder);
        checkInfo(bible, module.info);
        checkPositions(bible, module, roundTrips);
        return letters;
    } catch (const std::exception& ex) {
        throw CBuildError(
            message("%s: the written module failed verification: %s", folder, withSystemReason(ex)));
    }
}

} // namespace Kedrin::ModTool
