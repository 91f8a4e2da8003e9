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

#include <algorithm>
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

std::size_t CWordIndexer::Hash::operator()(std::string_view text) const
{
    return XXH3_64bits(text.data(), text.size());
}

CWordIndexer::CWordIndexer() : m_boundaries(std::make_unique<CBoundaries>()) {}
CWordIndexer::~CWordIndexer() = default;

/// Every space is a boundary that no rule looks across, so each chunk between spaces can be segmented
/// separately, once per distinct chunk.
void CWordIndexer::add(std::string_view verse, unsigned int verseNum)
{
    while (!verse.empty()) {
        const std::size_t blank = std::min(verse.find(' '), verse.size());
        if (blank != 0)
            addChunk(verse.substr(0, blank), verseNum);
        verse.remove_prefix(std::min(blank + 1, verse.size()));
    }
}

void CWordIndexer::addChunk(std::string_view text, unsigned int verseNum)
{
    auto known = m_chunks.find(text);
    if (known == m_chunks.end())
        known = m_chunks.emplace(text, segment(text, verseNum)).first;
    Chunk& chunk = known.value();
    ++chunk.occurrences;
    m_longWords.count += chunk.longWordsCount;
    for (std::uint32_t i = chunk.first; i < chunk.first + chunk.count; ++i) {
        const std::uint32_t word = m_chunkWords[i].word;
        if (m_lastVerse[word] == verseNum + 1)
            continue;
        m_lastVerse[word] = verseNum + 1;
        m_postings.push_back({word, static_cast<std::uint16_t>(verseNum)});
    }
}

CWordIndexer::Chunk CWordIndexer::segment(std::string_view text, unsigned int verseNum)
{
    const auto first = static_cast<std::uint32_t>(m_chunkWords.size());
    std::uint32_t longWordsCount = 0;
    m_boundaries->forEachWord(text, [&](std::size_t begin, std::size_t length) {
        const std::string_view word = text.substr(begin, length);
        if (length <= maxWordBytes) {
            const std::uint32_t spelling = spellingOf(word);
            m_chunkWords.push_back({spelling, m_spellings[spelling].word});
            return;
        }
        if (m_longWords.first.empty())
            m_longWords = {0, std::string(word), verseNum};
        ++longWordsCount;
    });
    return {first, static_cast<std::uint32_t>(m_chunkWords.size()) - first, longWordsCount, 0};
}

std::uint32_t CWordIndexer::spellingOf(std::string_view text)
{
    if (const auto known = m_spellingIds.find(text); known != m_spellingIds.end())
        return known->second;
    std::string folded(text);
    std::transform(folded.begin(), folded.end(), folded.begin(), ut::cyr_chrupcase);
    const auto [word, isNew] = m_wordIds.emplace(folded, static_cast<std::uint32_t>(m_lastVerse.size()));
    if (isNew)
        m_lastVerse.push_back(0);
    const auto id = static_cast<std::uint32_t>(m_spellings.size());
    m_spellings.push_back({std::string(text), word->second});
    m_spellingIds.emplace(text, id);
    return id;
}

/// @returns [spelling]
std::vector<std::uint32_t> CWordIndexer::spellingCounts() const
{
    std::vector<std::uint32_t> counts(m_spellings.size(), 0);
    for (const auto& [text, chunk] : m_chunks)
        for (std::uint32_t i = chunk.first; i < chunk.first + chunk.count; ++i)
            counts[m_chunkWords[i].spelling] += chunk.occurrences;
    return counts;
}

/// @param counts  [spelling]
/// @returns [word]
std::vector<const std::string*> CWordIndexer::chosenSpellings(const std::vector<std::uint32_t>& counts) const
{
    std::vector<const std::string*> texts(m_lastVerse.size(), nullptr);
    std::vector<std::uint32_t> highest(texts.size(), 0);
    for (std::size_t i = 0; i < m_spellings.size(); ++i) {
        const auto& [text, word] = m_spellings[i];
        if (texts[word] != nullptr && counts[i] <= highest[word])
            continue;
        texts[word] = &text;
        highest[word] = counts[i];
    }
    return texts;
}

/// In the order of Tolvo::caseInsensitiveComp, which is that of the folded bytes.
std::vector<std::uint32_t> CWordIndexer::sortedWords() const
{
    std::vector<std::pair<std::string_view, std::uint32_t>> folded(m_wordIds.begin(), m_wordIds.end());
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
    const std::vector<const std::string*> texts = chosenSpellings(counts);

    WordIndex index;
    index.occurrences = std::accumulate(counts.begin(), counts.end(), std::uint64_t(0));
    std::vector<std::uint32_t> next(texts.size(), 0); // [word]: posting count, then write position
    for (const Posting& posting : m_postings)
        ++next[posting.word];
    std::uint32_t begin = 0;
    for (const std::uint32_t word : sortedWords()) {
        index.words.push_back(*texts[word]);
        index.firstEntry.push_back(begin);
        begin += std::exchange(next[word], begin);
    }
    index.firstEntry.push_back(begin);
    index.verseNums.resize(m_postings.size());
    for (const Posting& posting : m_postings)
        index.verseNums[next[posting.word]++] = posting.verseNum;
    return index;
}

} // namespace Kedrin::ModTool
