#pragma once

#include "numbered_texts.h"

#include <tsl/robin_map.h>

#include <cstdint>
#include <deque>
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
    std::size_t count() const { return m_words.size(); }

    const LongWords& longWords() const { return m_longWords; }

    /// The index of everything added. Call once.
    WordIndex finish();

private:
    struct ChunkWord
    {
        std::uint32_t spelling, word;
    };
    /// A text of 1 to 15 bytes between blanks. It is compared and hashed without a loop over its bytes, and without a
    /// branch that depends on its length, which no processor can foresee.
    struct ShortText
    {
        std::uint64_t low, high; ///< the first byte is the lowest; each ^ ' ', then zeros

        bool operator==(const ShortText&) const = default;
    };
    struct ShortHash
    {
        std::size_t operator()(const ShortText& text) const;
    };
    struct Chunk ///< a text between blanks, and the words in it
    {
        std::uint32_t first; ///< in m_chunkWords
        std::uint32_t count;
        std::uint32_t firstWord; ///< that of the first, beside the rest as most have only one
        std::uint32_t occurrences;
    };
    struct LongChunk
    {
        Chunk chunk;
        std::uint32_t longWordsCount;
    };
    struct Verse
    {
        std::uint16_t verseNum;
        std::uint32_t wordsEnd; ///< of its words in m_versesWords
    };

    void addShort(const ShortText& key, std::string_view chunk, unsigned int verseNum);
    void addLong(std::string_view chunk, unsigned int verseNum);
    void addWords(Chunk& chunk, unsigned int verseNum);
    void addWord(std::uint32_t word, unsigned int verseNum);
    LongChunk segment(std::string_view chunk, unsigned int verseNum);
    std::uint32_t spellingOf(std::string_view word);
    std::vector<std::uint32_t> spellingCounts() const;
    std::vector<std::uint32_t> chosenSpellings(const std::vector<std::uint32_t>& counts) const;
    std::vector<std::uint32_t> sortedWords() const;

    class CBoundaries;
    std::unique_ptr<CBoundaries> m_boundaries;
    std::string m_padded; ///< a verse, and blanks
    tsl::robin_map<ShortText, Chunk, ShortHash, std::equal_to<>, std::allocator<std::pair<ShortText, Chunk>>,
                   true>
        m_shortChunks;
    CNumberedTexts m_longTexts;
    std::vector<LongChunk> m_longChunks; ///< [number in m_longTexts]
    std::vector<ChunkWord> m_chunkWords;
    CNumberedTexts m_spellings;
    std::vector<std::uint32_t> m_spellingWords; ///< [spelling]: its word
    CNumberedTexts m_words;                     ///< folded
    std::vector<std::uint32_t> m_lastVerse;     ///< [word]: the last verse that holds it, plus 1
    std::deque<std::uint32_t> m_versesWords;    ///< the words of all verses, each once a verse
    std::vector<Verse> m_verses;
    LongWords m_longWords;
};

} // namespace Kedrin::ModTool
