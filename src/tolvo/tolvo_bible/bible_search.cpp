#include "tolvo_bible/bible.h"

#include "lets_out.h"
#include "tolvo_bible/bible_structure.h"
#include "tolvo_bible/bible_text.h"
#include "tolvo_bible/conc.h"
#include "tolvo_bible/text_scan.h"
#include "tolvo_bible/word_list.h"

#include <algorithm>
#include <ios>
#include <stdexcept>

namespace Kedrin::Tolvo {

namespace {

/// Global references of verse numbers. Verses of one chapter follow each other in both numberings, so only
/// the first verse requested in a chapter is looked up; the later ones are derived from it.
class CRefWalk
{
public:
    CRefWalk(const CBible& bible, const CBibleStructure& structure) : m_bible(bible), m_structure(structure)
    {}

    /// @throws std::out_of_range  as CBibleStructure::toRef and CBible::toGlobal
    CRef globalRefOf(unsigned int localVerseNum)
    {
        if (localVerseNum < m_firstNum || localVerseNum - m_firstNum >= m_count)
            startAt(localVerseNum);
        return CRef(m_first.bookID(), m_first.chapter(), m_first.verse() + (localVerseNum - m_firstNum),
                    true);
    }

private:
    void startAt(unsigned int localVerseNum)
    {
        const bool isAfter = m_count != 0 && localVerseNum > m_firstNum;
        m_local = isAfter ? m_structure.toRefAfter(m_local, localVerseNum) : m_structure.toRef(localVerseNum);
        m_first = m_bible.toGlobal(m_local);
        m_firstNum = localVerseNum;
        m_count =
            std::max(m_structure.versesFrom(m_local), 1u); // an empty chapter has no next verse to count to
    }

    const CBible& m_bible;
    const CBibleStructure& m_structure;
    CRef m_local; ///< of m_firstNum
    CRef m_first; ///< the same in global numbers
    unsigned int m_firstNum = 0;
    unsigned int m_count = 0; ///< count of verses, starting at m_firstNum, in the same chapter
};

} // namespace

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

void CBible::searchWord(CConc& conc, const std::string& word, std::vector<CRef>& searchResult) const
{
    const int wordIndex = m_wordList->indexOf(word);
    if (wordIndex == -1)
        return;
    std::vector<unsigned int> verseNums;
    conc.readVersesFor(static_cast<unsigned int>(wordIndex), verseNums);
    searchResult.reserve(verseNums.size());
    CRefWalk refs(*this, *m_structure);
    for (const unsigned int verseNum : verseNums)
        searchResult.push_back(refs.globalRefOf(verseNum));
}

void CBible::searchPart(CBibleText& text, const std::string& part, bool caseSensitive,
                        std::vector<CRef>& searchResult) const
{
    const CTextScan scan(part, caseSensitive ? CTextScan::Case::exact : CTextScan::Case::ignored);
    CScanAhead needle(scan, !caseSensitive);
    CRefWalk refs(*this, *m_structure);
    CVerseCursor cursor(text, 0, m_structure->totalVersesCount());
    while (cursor.next())
        if (needle.isIn(cursor.text(), cursor.blockEnd(), cursor.blockNum()))
            searchResult.push_back(refs.globalRefOf(cursor.verseNum()));
}

} // namespace Kedrin::Tolvo
