#include "tolvo_bible/bible.h"

#include "lets_out.h"
#include "tolvo_bible/bible_structure.h"
#include "tolvo_bible/bible_text.h"
#include "tolvo_bible/conc.h"
#include "tolvo_bible/global_refs.h"
#include "tolvo_bible/text_scan.h"
#include "tolvo_bible/word_list.h"

#include <cstring>
#include <ios>
#include <stdexcept>

namespace Kedrin::Tolvo {

void CBible::search(const std::string& searchText, bool wholeWord, bool caseSensitive,
                    std::vector<CRef>& searchResult) const
{
    ut::lets_out<std::logic_error>("CBible::search()", [&] {
        searchIn(*m_text, *m_conc, searchText, wholeWord, caseSensitive, searchResult);
    });
}

void CBible::searchVerses(const std::string& searchText, bool wholeWord, bool caseSensitive,
                          std::vector<CRef>& searchResult) const
{
    ut::lets_out<std::logic_error, std::ios_base::failure>("CBible::searchVerses()", [&] {
        CBibleText text = m_text->afresh();
        CConc conc = m_conc->afresh();
        searchIn(text, conc, searchText, wholeWord, caseSensitive, searchResult);
    });
}

void CBible::searchIn(CBibleText& text, CConc& conc, const std::string& searchText, bool wholeWord,
                      bool caseSensitive, std::vector<CRef>& searchResult) const
{
    if (wholeWord && caseSensitive)
        throw std::logic_error("Whole words search may be only case insensitive");
    searchResult.clear();
    if (wholeWord)
        searchWord(conc, searchText, searchResult);
    else
        searchPart(text, searchText, caseSensitive, searchResult);
}

const CGlobalRefs& CBible::globalRefs() const
{
    if (m_globalRefs == nullptr)
        m_globalRefs = new CGlobalRefs(*this, *m_structure);
    return *m_globalRefs;
}

void CBible::searchWord(CConc& conc, const std::string& word, std::vector<CRef>& searchResult) const
{
    const int wordIndex = m_wordList->indexOf(word);
    if (wordIndex == -1)
        return;
    std::vector<unsigned int> verseNums;
    conc.readVersesFor(static_cast<unsigned int>(wordIndex), verseNums);
    CGlobalRefs::Walk(globalRefs()).append(verseNums, searchResult);
}

namespace {

/// Whether there is a zero byte from `from` to `to`, where the scan has just found the needle. Mostly the window tells:
/// memchr() branches on lengths, which cannot be predicted, and would take half the time of a search with many hits.
bool hasZero(const char* from, const char* to, const CTextScan::Window& window)
{
    if (window.contains(from) && to <= window.end())
        return window.nextZero(from) < to;
    return std::memchr(from, '\0', static_cast<std::size_t>(to - from)) != nullptr;
}

/// Calls found(index) for each verse of the run whose text contains the whole needle. The run is scanned as one text; the
/// bounds of a verse are looked at only where the needle is.
/// @param endsAtZero  a text ends at its first zero byte, like a C string
template <class Found>
void searchRun(const CVerseRun& run, const CTextScan& scan, bool endsAtZero, Found found)
{
    const char* const runEnd = run.endOf(run.size() - 1);
    CTextScan::Window window;
    std::size_t index = 0;
    const char* position = run.textOf(index);
    while (true) {
        const char* const hit = scan.find(position, runEnd, window);
        if (static_cast<std::size_t>(runEnd - hit) < scan.needleSize())
            return; // there is none
        while (run.endOf(index) < hit)
            ++index;
        position = run.textOf(index);
        if (hit < position)
            continue; // it begins in the length bytes of this verse
        const bool isWhole = static_cast<std::size_t>(run.endOf(index) - hit) >= scan.needleSize();
        if (isWhole && !(endsAtZero && hasZero(position, hit, window)))
            found(index);
        if (++index == run.size())
            return;
        position = run.textOf(index);
    }
}

} // namespace

void CBible::searchPart(CBibleText& text, const std::string& part, bool caseSensitive,
                        std::vector<CRef>& searchResult) const
{
    const CTextScan scan(part, caseSensitive ? CTextScan::Case::exact : CTextScan::Case::ignored);
    CGlobalRefs::Walk refs(globalRefs());
    CVerseCursor cursor(text, 0, m_structure->totalVersesCount());
    while (cursor.nextRun()) {
        const CVerseRun& run = cursor.run();
        searchRun(run, scan, !caseSensitive, [&](std::size_t index) {
            refs.append(run.firstVerseNum() + static_cast<unsigned int>(index), searchResult);
        });
    }
}

} // namespace Kedrin::Tolvo
