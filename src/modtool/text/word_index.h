#pragma once

#include <tsl/robin_map.h>

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace Kedrin::ModTool {

/// The words of a module and the verses that hold them.
struct WordIndex
{
    std::vector<std::string> words;        ///< Windows-1251, in the order of Tolvo::caseInsensitiveComp
    std::vector<std::uint32_t> firstEntry; ///< [word], and one more: where its verses begin in `verseNums`
    std::vector<std::uint16_t> verseNums;  ///< verse numbers from 0, ascending for each word, none twice
    std::uint64_t occurrences = 0;         ///< words of the running text that are in the list
};

/// Most bytes of a line of the word list, its CR included.
inline constexpr std::size_t maxWordLineBytes = 40;

/// Collects the words of a module, verse by verse. A word is a segment between Unicode word boundaries that
/// contains a letter or a digit; one that does not fit in a line of the word list is omitted. Words that
/// differ only in case (ut::cyr_stricmp) are one entry, in its most frequent spelling; of equally frequent
/// ones, the first in the text.
class CWordIndexer
{
public:
    static constexpr std::size_t maxWordBytes = maxWordLineBytes - 1;

    /// Words that are too long for the list.
    struct LongWords
    {
        std::uint64_t count = 0;
        std::string first;
        unsigned int firstVerse = 0; ///< the number of the verse that contains it
    };

    CWordIndexer();
    ~CWordIndexer();

    /// @param verse     Windows-1251, with single spaces
    /// @param verseNum  ascending from call to call
    /// @throws CBuildError  "the Unicode library failed: %s"
    void add(std::string_view verse, unsigned int verseNum);

    /// How many words there are so far.
    std::size_t count() const { return m_lastVerse.size(); }

    const LongWords& longWords() const { return m_longWords; }

    /// The index of everything added. Call once.
    WordIndex finish();

private:
    struct Hash
    {
        using is_transparent = void;
        std::size_t operator()(std::string_view text) const;
    };
    /// Keeps keys, values and hashes in one array: a look-up mostly touches one line of the processor's cache.
    template <typename Value>
    using Map = tsl::robin_map<std::string, Value, Hash, std::equal_to<>,
                               std::allocator<std::pair<std::string, Value>>, true>;

    struct Spelling
    {
        std::string text;
        std::uint32_t word;
    };
    struct ChunkWord
    {
        std::uint32_t spelling, word;
    };
    struct Chunk ///< a text between blanks, and the words in it
    {
        std::uint32_t first; ///< in m_chunkWords
        std::uint32_t count;
        std::uint32_t longWordsCount;
        std::uint32_t occurrences;
    };
    struct Posting
    {
        std::uint32_t word;
        std::uint16_t verseNum;
    };

    void addChunk(std::string_view chunk, unsigned int verseNum);
    Chunk segment(std::string_view chunk, unsigned int verseNum);
    std::uint32_t spellingOf(std::string_view word);
    std::vector<std::uint32_t> spellingCounts() const;
    std::vector<const std::string*> chosenSpellings(const std::vector<std::uint32_t>& counts) const;
    std::vector<std::uint32_t> sortedWords() const;

    class CBoundaries;
    std::unique_ptr<CBoundaries> m_boundaries;
    Map<Chunk> m_chunks;
    std::vector<ChunkWord> m_chunkWords;
    Map<std::uint32_t> m_spellingIds;
    std::vector<Spelling> m_spellings;      ///< in the order of their first appearance
    Map<std::uint32_t> m_wordIds;           ///< by the folded spelling
    std::vector<std::uint32_t> m_lastVerse; ///< [word]: the last verse that holds it, plus 1
    std::vector<Posting> m_postings;
    LongWords m_longWords;
};

} // namespace Kedrin::ModTool
