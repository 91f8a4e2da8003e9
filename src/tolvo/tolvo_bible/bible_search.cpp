#include "tolvo_bible/bible.h"

#include "lets_out.h"
#include "tolvo_bible/bible_structure.h"
#include "tolvo_bible/bible_text.h"
#include "tolvo_bible/conc.h"
#include "tolvo_bible/global_refs.h"
#include "tolvo_bible/text_scan.h"
#include "tolvo_bible/word_list.h"

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
    searchResult.reserve(verseNums.size());
    CGlobalRefs::Walk refs(globalRefs());
    for (const unsigned int verseNum : verseNums)
        refs.append(verseNum, searchResult);
}

void CBible::searchPart(CBibleText& text, const std::string& part, bool caseSensitive,
                        std::vector<CRef>& searchResult) const
{
    const CTextScan scan(part, caseSensitive ? CTextScan::Case::exact : CTextScan::Case::ignored);
    CScanAhead needle(scan, !caseSensitive);
    CGlobalRefs::Walk refs(globalRefs());
    CVerseCursor cursor(text, 0, m_structure->totalVersesCount());
    while (cursor.next()) {
        if (needle.isIn(cursor.text(), cursor.blockEnd(), cursor.blockNum()))
            refs.append(cursor.verseNum(), searchResult);
        else
            cursor.passBefore(needle.clearUpTo(cursor.text().data()));
    }
}

} // namespace Kedrin::Tolvo
