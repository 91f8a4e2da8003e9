#pragma once

#include "tolvo_bible.h"

#include <stdexcept>

/// The reference search of a translation's text: reads each verse with CBibleText::operator[] and compares it
/// separately. Slow; every fast search must find the same hits.
class PlainSearch
{
public:
    /// All verses of the structure, or those before the first one that cannot be read.
    explicit PlainSearch(const std::string& folder)
        : m_bible(folder),
          m_titles((folder + "/BibleTitles.txt").c_str()),
          m_structure((folder + "/BibleStructure.csv").c_str(), m_titles.booksCount())
    {
        Kedrin::Tolvo::CBibleText text((folder + "/CompactText.bin").c_str(),
                                       (folder + "/CompactPoint.bin").c_str());
        try {
            for (unsigned int v = 0; v < m_structure.totalVersesCount(); ++v)
                m_verses.push_back(text[static_cast<int>(v)]);
        } catch (const std::out_of_range&) {
            m_complete = false;
        }
    }

    const Kedrin::Tolvo::CBible& bible() const { return m_bible; }
    const std::vector<std::string>& verses() const { return m_verses; }
    /// Whether all verses of the structure can be read; a search of an incomplete text throws.
    bool isComplete() const { return m_complete; }

    /// Verse numbers of the hits.
    std::vector<unsigned int> hits(const std::string& part, bool caseSensitive) const
    {
        std::vector<unsigned int> found;
        for (unsigned int v = 0; v < m_verses.size(); ++v)
            if (caseSensitive ? m_verses[v].find(part, 0) != std::string::npos
                              : ut::cyr_stristr(m_verses[v].c_str(), part.c_str()) != nullptr)
                found.push_back(v);
        return found;
    }

    Kedrin::Tolvo::CRef refOf(unsigned int verseNum) const
    {
        return m_bible.toGlobal(m_structure.toRef(verseNum));
    }

private:
    Kedrin::Tolvo::CBible m_bible;
    Kedrin::Tolvo::CTitles m_titles;
    Kedrin::Tolvo::CBibleStructure m_structure;
    std::vector<std::string> m_verses;
    bool m_complete = true;
};
