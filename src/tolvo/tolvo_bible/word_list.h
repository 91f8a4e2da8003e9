#pragma once

#include "file_vector.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace Kedrin::Tolvo {

/// The order of the word list: whether ut::cyr_stricmp of the two is negative. A strict weak ordering.
bool caseInsensitiveComp(const std::string& s1, const std::string& s2);

/// Whether a word begins with `prefix`, ignoring case.
bool caseInsensitiveBegins(const std::string& word, const std::string& prefix);

/// The distinct words of one module, sorted by caseInsensitiveComp (doc/formats/word-list.md), held in
/// memory. A word's index, its position in the list from 0, is its key in the concordance. The file must be
/// sorted; this is not checked.
class CWordList
{
public:
    /// @param wordPointPath  line offsets for a list read from disk; not opened in memory mode
    /// @param loadIntoMem    must be true: a list read from disk is not implemented, and the refusal
    ///                       (std::logic_error) is outside the contract, so it ends the program
    /// A line of more than 40 bytes, including its CR, ends the list before it.
    /// @throws std::ios_base::failure  "CWordList::CWordList(): error opening file %s"; "...: file %s is
    ///                                 longer than 64 MiB"
    CWordList(const char* wordListPath, const char* wordPointPath, bool loadIntoMem);
    CWordList(const CWordList&) = delete;
    CWordList& operator=(const CWordList&) = delete;

    /// Throws what the constructor would throw for this file, without making a list of its words.
    static void ValidateFile(const char* wordListPath);

    unsigned int count() const { return m_count; }

    /// @throws std::out_of_range  "CWordList::operator [](): wordIndex out of range"
    std::string operator[](unsigned int wordIndex) const;

    /// The index of a word, ignoring case; of several that differ only in case, the first; -1 if it is not in
    /// the list. Logarithmic, without disk access.
    int indexOf(const std::string& word) const;

private:
    void load(const char* wordListPath);
    void endWordsAtZeroBytes();
    const char* wordAt(unsigned int wordIndex) const;

    unsigned int m_count = 0;
    bool m_loaded = false;
    std::unique_ptr<ut::CFileVector<unsigned int>> m_wordPoint; ///< null: memory mode
    std::string m_content;                 ///< the file, with a zero byte after each word
    std::vector<std::uint8_t> m_lineBytes; ///< of each word with its line end: a quarter of the words' starts
    std::vector<std::uint32_t> m_groupStarts; ///< in m_content, of each sixteenth word
};

} // namespace Kedrin::Tolvo
