#include "tolvo_bible/bible.h"

#include "io_failure.h"
#include "lets_out.h"
#include "tolvo_bible/bible_info.h"
#include "tolvo_bible/bible_structure.h"
#include "tolvo_bible/bible_text.h"
#include "tolvo_bible/conc.h"
#include "tolvo_bible/diff.h"
#include "tolvo_bible/folder_name.h"
#include "tolvo_bible/global_refs.h"
#include "tolvo_bible/titles.h"
#include "tolvo_bible/word_list.h"
#include "ut_utils.h"

#include <memory>
#include <stdexcept>

namespace Kedrin::Tolvo {

namespace {

std::string inFolder(const std::string& bibleFolder, const char* fileName)
{
    return bibleFolder + (bibleFolder.ends_with('/') ? "" : "/") + fileName;
}

[[noreturn]] void throwLoadingError(const std::string& bibleFolder, const std::exception& ex)
{
    throw std::runtime_error(
        ut::format("CBible::CBible(): Error loading Bible (from folder %s);\nError message: \"%s\"",
                   bibleFolder.c_str(), ex.what()));
}

} // namespace

CBible::CBible(const std::string& bibleFolder)
{
    ut::lets_out<std::runtime_error>("CBible::CBible()", [&] { openParts(bibleFolder, Words::load); });
}

CBible::~CBible()
{
    delete m_globalRefs;
    delete m_conc;
    delete m_wordList;
    delete m_text;
    delete m_diff;
    delete m_structure;
    delete m_titles;
    // m_info is deliberately never deleted
}

void CBible::Validate(const std::string& bibleFolder)
{
    ut::lets_out<std::runtime_error>("CBible::Validate()", [&] {
        CBible proof;
        proof.openParts(bibleFolder, Words::openOnly);
        const std::unique_ptr<const CBibleInfo> info(proof.m_info); // not deleted by the destructor
        try {
            proof.proveParts(bibleFolder);
        } catch (const std::exception& ex) {
            throwLoadingError(bibleFolder, ex);
        }
    });
}

void CBible::proveParts(const std::string& bibleFolder) const
{
    if (!m_titles->m_isWhole)
        throw ut::CIoFailure("CTitles::CTitles(): error reading file " +
                             inFolder(bibleFolder, "BibleTitles.txt"));
    const bool allHaveText = m_structure->totalVersesCount() <= m_text->m_compactPoint->size();
    if (m_structure->m_furtherBook || !allHaveText)
        throw ut::CIoFailure("CBibleSructure::CBibleSructure(): error reading file " +
                             inFolder(bibleFolder, "BibleStructure.csv"));
    CVerseCursor firstChapter(*m_text, 0, m_structure->versesCount(0, 0));
    while (firstChapter.next()) {
    }
}

void CBible::openParts(const std::string& bibleFolder, Words words)
{
    try {
        const auto path = [&](const char* fileName) { return inFolder(bibleFolder, fileName); };

        m_titles = new CTitles(path("BibleTitles.txt").c_str());
        m_structure = new CBibleStructure(path("BibleStructure.csv").c_str(), m_titles->booksCount());
        m_diff = new CDiff(path("_Diff_.txt").c_str());
        m_text = new CBibleText(path("CompactText.bin").c_str(), path("CompactPoint.bin").c_str());
        if (words == Words::load)
            m_wordList = new CWordList(path("WordList.txt").c_str(), path("WordPoint.bin").c_str(), true);
        else
            CWordList::ValidateFile(path("WordList.txt").c_str());
        m_conc = new CConc(path("Conc.bin").c_str(), path("ConcP.bin").c_str());
        m_info = new CBibleInfo(path("_Info_.txt").c_str(), folder_name(bibleFolder).c_str());
    } catch (const std::exception& ex) {
        throwLoadingError(bibleFolder, ex);
    }
}

CRef CBible::toLocal(const CRef& globalRef) const
{
    return ut::lets_out<std::out_of_range>("CBible::toLocal()", [&] {
        const unsigned int localBookID = m_titles->localID(globalRef.bookID());
        return m_diff->toLocal(CRef(localBookID, globalRef.chapter(), globalRef.verse()));
    });
}

CRef CBible::toGlobal(const CRef& localRef) const
{
    return ut::lets_out<std::out_of_range>("CBible::toGlobal()", [&] {
        const unsigned int globalBookID = m_titles->globalID(localRef.bookID());
        return m_diff->toGlobal(CRef(globalBookID, localRef.chapter(), localRef.verse()));
    });
}

std::string CBible::operator[](const CRef& ref) const
{
    return ut::lets_out<std::out_of_range>("CBible::operator []()", [&] {
        if (!ref.isGlobal() && !ref.isLocal())
            throw std::out_of_range("CBible::operator [](): ref type is not known");
        const unsigned int verseNum = m_structure->toNum(ref.isGlobal() ? toLocal(ref) : ref);
        return (*m_text)[static_cast<int>(verseNum)];
    });
}

std::vector<std::string> CBible::chapterVerses(unsigned int bookID, unsigned int chapter) const
{
    return ut::lets_out<std::out_of_range, std::ios_base::failure>("CBible::chapterVerses()", [&] {
        std::vector<std::string> verses;
        const unsigned int verseCount = m_structure->versesCount(bookID, chapter);
        if (verseCount == 0)
            return verses;
        CVerseCursor cursor(*m_text, m_structure->toNum(CRef(bookID, chapter, 0)), verseCount);
        while (cursor.next())
            verses.emplace_back(cursor.text());
        return verses;
    });
}

std::string CBible::fullTitle(unsigned int globalBookID) const
{
    return hasBook(globalBookID) ? m_titles->fullTitle(m_titles->localID(globalBookID)) : std::string();
}

std::string CBible::shortTitle(unsigned int globalBookID) const
{
    return hasBook(globalBookID) ? m_titles->shortTitle(m_titles->localID(globalBookID)) : std::string();
}

std::string CBible::abbreviatedTitle(unsigned int globalBookID) const
{
    return hasBook(globalBookID) ? m_titles->abbreviatedTitle(m_titles->localID(globalBookID))
                                 : std::string();
}

unsigned int CBible::booksCount() const { return m_structure->booksCount(); }

unsigned int CBible::chaptersCount(unsigned int bookID) const { return m_structure->chaptersCount(bookID); }

unsigned int CBible::versesCount(unsigned int bookID, unsigned int chapter) const
{
    return m_structure->versesCount(bookID, chapter);
}

bool CBible::hasBook(unsigned int globalBookID) const { return m_titles->hasBook(globalBookID); }

unsigned int CBible::wordsCount() const { return m_wordList->count(); }

std::string CBible::getWord(unsigned int wordIndex) const { return (*m_wordList)[wordIndex]; }

int CBible::indexOfWord(const std::string& word) const { return m_wordList->indexOf(word); }

std::string CBible::demoString() const
{
    constexpr unsigned int verseNum = 31094;
    try {
        const CRef ref = m_structure->toRef(verseNum);
        return ut::format("num(%u) -> ref(%u, %u, %u)", verseNum, ref.bookID(), ref.chapter(), ref.verse());
    } catch (const std::exception& ex) {
        return std::string("Demo exception: ") + ex.what();
    }
}

} // namespace Kedrin::Tolvo
