#include "tolvo_bible/bible.h"

#include "lets_out.h"
#include "tolvo_bible/bible_structure.h"
#include "tolvo_bible/bible_text.h"
#include "tolvo_bible/conc.h"
#include "tolvo_bible/word_list.h"
#include "ut_utils.h"

#include <stdexcept>

namespace Kedrin::Tolvo {

void CBible::search(const std::string& searchText, bool wholeWord, bool caseSensitive,
                    std::vector<CRef>& searchResult) const
{
    ut::lets_out<std::logic_error>("CBible::search()", [&] {
        if (wholeWord && caseSensitive)
            throw std::logic_error("Whole words search may be only case insensitive");
        searchResult.clear();
        if (wholeWord)
            searchWord(searchText, searchResult);
        else
            searchPart(searchText, caseSensitive, searchResult);
    });
}

void CBible::searchWord(const std::string& word, std::vector<CRef>& searchResult) const
{
    const int wordIndex = m_wordList->indexOf(word);
    if (wordIndex == -1)
        return;
    std::vector<unsigned int> verseNums;
    m_conc->getVersesFor(static_cast<unsigned int>(wordIndex), verseNums);
    for (const unsigned int verseNum : verseNums)
        searchResult.push_back(globalRefOf(verseNum));
}

void CBible::searchPart(const std::string& part, bool caseSensitive, std::vector<CRef>& searchResult) const
{
    std::string verse;
    CVerseRun run(*m_text, 0, m_structure->totalVersesCount());
    while (run.next()) {
        verse.assign(run.text());
        const bool found = caseSensitive ? verse.find(part) != std::string::npos
                                         : ut::cyr_stristr(verse.c_str(), part.c_str()) != nullptr;
        if (found)
            searchResult.push_back(globalRefOf(run.verseNum()));
    }
}

CRef CBible::globalRefOf(unsigned int localVerseNum) const
{
    return toGlobal(m_structure->toRef(localVerseNum));
}

} // namespace Kedrin::Tolvo
