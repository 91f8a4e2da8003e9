#include "word_index.h"

#include "cp1251.h"
#include "errors.h"
#include "messages.h"
#include "ut_utils.h"

#include <unicode/brkiter.h>
#include <unicode/uchar.h>
#include <unicode/utext.h>

#define XXH_INLINE_ALL // its code for short keys
#include <xxhash.h>

#include <endian.h>

#include <algorithm>
#include <bit>
#include <cstring>
#include <numeric>

namespace Kedrin::ModTool {

/// Unicode word boundaries in Windows-1251 text. By the rules of the root locale, independent of the user's.
class CWordIndexer::CBoundaries
{
public:
    CBoundaries()
    {
        UErrorCode status = U_ZERO_ERROR;
        m_iterator.reset(icu::BreakIterator::createWordInstance(icu::Locale::getRoot(), status));
        check(status);
    }
    ~CBoundaries() { utext_close(m_text); }
    CBoundaries(const CBoundaries&) = delete;
    CBoundaries& operator=(const CBoundaries&) = delete;

    /// Calls `use(begin, length)` for each segment that holds a letter or a digit.
    template <typename Use>
    void forEachWord(std::string_view text, Use&& use)
    {
        m_units = ut::from_cp1251(text);
        UErrorCode status = U_ZERO_ERROR;
        m_text = utext_openUChars(m_text, m_units.data(), static_cast<int64_t>(m_units.size()), &status);
        m_iterator->setText(m_text, status);
        check(status);
        int32_t begin = m_iterator->first();
        for (int32_t end = m_iterator->next(); end != icu::BreakIterator::DONE;
             begin = end, end = m_iterator->next())
            if (holdsLetterOrDigit(begin, end))
                use(static_cast<std::size_t>(begin), static_cast<std::size_t>(end - begin));
    }

private:
    static void check(UErrorCode status)
    {
        if (U_FAILURE(status))
            throw CBuildError(message("the Unicode library failed: %s", u_errorName(status)));
    }

    bool holdsLetterOrDigit(int32_t begin, int32_t end) const
    {
        return std::any_of(m_units.begin() + begin, m_units.begin() + end,
                           [](char16_t unit) { return u_isalnum(unit) != 0; });
    }

    std::unique_ptr<icu::BreakIterator> m_iterator;
    std::u16string m_units;
    UText* m_text = nullptr;
};

std::size_t CWordIndexer::ShortHash::operator()(const ShortText& text) const
{
    return XXH3_64bits(&text, sizeof(text));
}

CWordIndexer::CWordIndexer() : m_boundaries(std::make_unique<CBoundaries>()) {}
CWordIndexer::~CWordIndexer() = default;

namespace {

constexpr std::size_t windowBytes = 16; // of a ShortText
constexpr std::uint64_t eachByte = 0x0101010101010101;

/// Eight bytes, the first the lowest, of which those that were ' ' are zero.
std::uint64_t differencesFromBlanks(const char* text)
{
    std::uint64_t bytes;
    std::memcpy(&bytes, text, sizeof(bytes));
    return le64toh(bytes) ^ (eachByte * ' ');
}

/// How many bytes are below the lowest that is zero: 0 to 8.
std::size_t bytesBeforeZero(std::uint64_t bytes)
{
    const std::uint64_t marks = (bytes - eachByte) & ~bytes & (eachByte * 0x80); // the lowest one is right
    return static_cast<std::size_t>(std::countr_zero(marks)) / 8;
}

bool isPlainLetter(char c)
{
    const auto byte = static_cast<unsigned char>(c);
    const auto small = static_cast<unsigned char>(byte | 0x20);
    return byte >= 0xC0 || (small >= 'a' && small <= 'z');
}

/// Most chunks are letters, from A to z or from А to я, and at most a few of the signs that follow words. Such letters are one
/// word by the Unicode rules too, which need not be asked.
/// @returns how many letters; 0 where the text is anything else
std::size_t lettersOfPlainWord(std::string_view text)
{
    const auto letters =
        static_cast<std::size_t>(std::find_if_not(text.begin(), text.end(), isPlainLetter) - text.begin());
    return text.find_first_not_of(",.;:!?)", letters) == std::string_view::npos ? letters : 0;
}

/// @param count  0 to 8
std::uint64_t lowestBytes(std::uint64_t bytes, std::size_t count)
{
    return count == 8 ? bytes : bytes & ((std::uint64_t(1) << 8 * count) - 1);
}

} // namespace

/// Every space is a boundary that no rule looks across, so each chunk between spaces can be segmented
/// separately, once per distinct chunk.
void CWordIndexer::add(std::string_view verse, unsigned int verseNum)
{
    m_padded.assign(verse).append(windowBytes, ' ');
    const std::string_view padded = m_padded;
    for (std::size_t at = 0; at < verse.size();) {
        const std::uint64_t low = differencesFromBlanks(padded.data() + at);
        const std::uint64_t high = differencesFromBlanks(padded.data() + at + 8);
        const std::size_t lowCount = bytesBeforeZero(low);
        const std::size_t highCount = lowCount / 8 * bytesBeforeZero(high); // 0 after a blank
        std::size_t length = lowCount + highCount;
        if (length == windowBytes) {
            length = padded.find(' ', at + windowBytes) - at;
            addLong(padded.substr(at, length), verseNum);
        } else if (length != 0) {
            const ShortText key = {lowestBytes(low, lowCount), lowestBytes(high, highCount)};
            addShort(key, padded.substr(at, length), verseNum);
        }
        at += length + 1;
    }
    m_verses.push_back(
        {static_cast<std::uint16_t>(verseNum), static_cast<std::uint32_t>(m_versesWords.size())});
}

void CWordIndexer::addShort(const ShortText& key, std::string_view text, unsigned int verseNum)
{
    auto known = m_shortChunks.find(key);
    if (known == m_shortChunks.end())
        known = m_shortChunks.emplace(key, segment(text, verseNum).chunk).first;
    addWords(known.value(), verseNum);
}

void CWordIndexer::addLong(std::string_view text, unsigned int verseNum)
{
    const auto [number, isNew] = m_longTexts.add(text);
    if (isNew)
        m_longChunks.push_back(segment(text, verseNum));
    LongChunk& known = m_longChunks[number];
    m_longWords.count += known.longWordsCount;
    addWords(known.chunk, verseNum);
}

void CWordIndexer::addWords(Chunk& chunk, unsigned int verseNum)
{
    ++chunk.occurrences;
    if (chunk.count == 0)
        return;
    addWord(chunk.firstWord, verseNum);
    for (std::uint32_t i = 1; i < chunk.count; ++i)
        addWord(m_chunkWords[chunk.first + i].word, verseNum);
}

void CWordIndexer::addWord(std::uint32_t word, unsigned int verseNum)
{
    if (m_lastVerse[word] == verseNum + 1)
        return;
    m_lastVerse[word] = verseNum + 1;
    m_versesWords.push_back(word);
}

CWordIndexer::LongChunk CWordIndexer::segment(std::string_view text, unsigned int verseNum)
{
    const auto first = static_cast<std::uint32_t>(m_chunkWords.size());
    std::uint32_t longWordsCount = 0;
    const auto add = [&](std::string_view word) {
        if (word.size() <= maxWordBytes) {
            const std::uint32_t spelling = spellingOf(word);
            m_chunkWords.push_back({spelling, m_spellingWords[spelling]});
            return;
        }
        if (m_longWords.first.empty())
            m_longWords = {0, std::string(word), verseNum};
        ++longWordsCount;
    };
    if (const std::size_t letters = lettersOfPlainWord(text); letters != 0)
        add(text.substr(0, letters));
    else
        m_boundaries->forEachWord(
            text, [&](std::size_t begin, std::size_t length) { add(text.substr(begin, length)); });
    const auto count = static_cast<std::uint32_t>(m_chunkWords.size()) - first;
    return {{first, count, count != 0 ? m_chunkWords[first].word : 0, 0}, longWordsCount};
}

std::uint32_t CWordIndexer::spellingOf(std::string_view text)
{
    const auto [spelling, isNew] = m_spellings.add(text);
    if (!isNew)
        return spelling;
    std::string folded(text);
    std::transform(folded.begin(), folded.end(), folded.begin(), ut::cyr_chrupcase);
    const auto [word, isNewWord] = m_words.add(folded);
    if (isNewWord)
        m_lastVerse.push_back(0);
    m_spellingWords.push_back(word);
    return spelling;
}

/// @returns [spelling]
std::vector<std::uint32_t> CWordIndexer::spellingCounts() const
{
    std::vector<std::uint32_t> counts(m_spellings.size(), 0);
    const auto count = [&](const Chunk& chunk) {
        for (std::uint32_t i = chunk.first; i < chunk.first + chunk.count; ++i)
            counts[m_chunkWords[i].spelling] += chunk.occurrences;
    };
    for (const auto& [text, chunk] : m_shortChunks)
        count(chunk);
    for (const LongChunk& known : m_longChunks)
        count(known.chunk);
    return counts;
}

/// @param counts  [spelling]
/// @returns [word]: the spelling
std::vector<std::uint32_t> CWordIndexer::chosenSpellings(const std::vector<std::uint32_t>& counts) const
{
    std::vector<std::uint32_t> chosen(m_words.size());
    std::vector<std::uint32_t> highest(chosen.size(), 0);
    for (std::uint32_t spelling = 0; spelling < counts.size(); ++spelling) {
        const std::uint32_t word = m_spellingWords[spelling];
        if (counts[spelling] <= highest[word])
            continue;
        chosen[word] = spelling;
        highest[word] = counts[spelling];
    }
    return chosen;
}

/// In the order of Tolvo::caseInsensitiveComp, which is that of the folded bytes.
std::vector<std::uint32_t> CWordIndexer::sortedWords() const
{
    std::vector<std::pair<std::string_view, std::uint32_t>> folded;
    folded.reserve(m_words.size());
    for (std::uint32_t word = 0; word < m_words.size(); ++word)
        folded.emplace_back(m_words[word], word);
    std::sort(folded.begin(), folded.end());
    std::vector<std::uint32_t> words;
    words.reserve(folded.size());
    for (const auto& [text, word] : folded)
        words.push_back(word);
    return words;
}

WordIndex CWordIndexer::finish()
{
    const std::vector<std::uint32_t> counts = spellingCounts();
    const std::vector<std::uint32_t> spellings = chosenSpellings(counts);

    WordIndex index;
    index.occurrences = std::accumulate(counts.begin(), counts.end(), std::uint64_t(0));
    std::vector<std::uint32_t> next(spellings.size(), 0); // [word]: count of its verses, then write position
    for (const std::uint32_t word : m_versesWords)
        ++next[word];
    std::uint32_t begin = 0;
    for (const std::uint32_t word : sortedWords()) {
        index.words.push_back(m_spellings[spellings[word]]);
        index.firstEntry.push_back(begin);
        begin += std::exchange(next[word], begin);
    }
    index.firstEntry.push_back(begin);
    index.verseNums.resize(m_versesWords.size());
    std::uint32_t at = 0;
    for (const Verse& verse : m_verses)
        for (; at < verse.wordsEnd; ++at)
            index.verseNums[next[m_versesWords[at]]++] = verse.verseNum;
    return index;
}

} // namespace Kedrin::ModTool
