#include "check_words.h"

#include "check_concordance.h"
#include "check_file.h"
#include "module_format.h"
#include "tolvo_bible/word_list.h"
#include "ut_utils.h"

#include <algorithm>

namespace Kedrin::ModTool {

namespace {

/// The words of the text, found by the words of a list that should be the same.
class CTextWords
{
public:
    explicit CTextWords(const WordIndex& index) : m_index(index), m_isListed(index.words.size(), false) {}

    /// The number of a word; nothing when the text does not hold it. Fast for words in the order of the list.
    std::optional<std::size_t> find(const std::string& word)
    {
        const auto& words = m_index.words;
        const auto isAt = [&](std::size_t i) {
            return i < words.size() && ut::cyr_stricmp(words[i].c_str(), word.c_str()) == 0;
        };
        if (!isAt(m_next))
            m_next = static_cast<std::size_t>(
                std::lower_bound(words.begin(), words.end(), word, Tolvo::caseInsensitiveComp) -
                words.begin());
        return isAt(m_next) ? std::optional(m_next++) : std::nullopt;
    }

    /// Notes that the list holds a word; false when it was noted before.
    bool list(std::size_t word)
    {
        const bool isNew = !m_isListed[word];
        m_isListed[word] = true;
        return isNew;
    }

    std::span<const std::uint16_t> versesOf(std::size_t word) const
    {
        const std::uint32_t first = m_index.firstEntry[word];
        return std::span(m_index.verseNums).subspan(first, m_index.firstEntry[word + 1] - first);
    }

    template <typename Use>
    void forEachUnlisted(Use&& use) const
    {
        for (std::size_t word = 0; word < m_isListed.size(); ++word)
            if (!m_isListed[word])
                use(m_index.words[word], m_index.verseNums[m_index.firstEntry[word]]);
    }

private:
    const WordIndex& m_index;
    std::vector<bool> m_isListed;
    std::size_t m_next = 0;
};

/// A list's words, one after another.
class CWordListCheck
{
public:
    CWordListCheck(const std::optional<std::string>& points, CConcordanceCheck* concordance,
                   const CheckedShape& shape, const CheckedText* text, CFindings& findings)
        : m_points(points),
          m_concordance(concordance),
          m_shape(shape),
          m_text(text),
          m_findings(findings),
          m_textWords(text ? text->words : m_noWords)
    {}

    /// @returns how many words the list has
    std::uint64_t checkList(std::string_view content)
    {
        std::string_view rest = content;
        while (!rest.empty()) {
            if (m_wordsCount == maxCheckedWords) {
                m_findings.add(CheckID::sizeLimit, wordListFileName);
                return m_wordsCount;
            }
            const std::size_t byteOffset = content.size() - rest.size();
            const std::string_view line = takeLine(rest);
            const bool endsWithLf = line.end() != content.end();
            if (!checkLine(line, endsWithLf, byteOffset))
                return m_wordsCount;
        }
        finish();
        return m_wordsCount;
    }

private:
    bool checkLine(std::string_view line, bool endsWithLf, std::size_t byteOffset)
    {
        const auto position = [&] {
            return std::string(wordListFileName) + ":" + std::to_string(m_wordsCount) + ": " +
                   shownBytes(m_word);
        };
        const bool endsWithCr = line.ends_with('\r');
        m_word = lineText(line);
        ++m_wordsCount;
        if (line.size() > maxWordLineBytes)
            m_findings.addLazily(CheckID::wordTooLong, position);
        if (!endsWithCr || !endsWithLf)
            m_findings.addLazily(CheckID::wordLineEnd, position);
        if (hasBadByte(line.substr(0, line.size() - (endsWithCr ? 1 : 0))))
            m_findings.addLazily(CheckID::wordBytes, position);
        checkPoint(byteOffset);
        checkOrder();
        const bool isSound = checkEntry();
        m_previous = m_word;
        return isSound;
    }

    void checkPoint(std::size_t byteOffset)
    {
        const std::uint64_t word = m_wordsCount - 1;
        if (m_points && word < m_points->size() / pointBytes && unsigned32At(*m_points, word) != byteOffset)
            m_findings.addLazily(CheckID::wordPointsOffset, [&] {
                return shownBytes(m_word) + ": " + std::to_string(unsigned32At(*m_points, word)) + " / " +
                       std::to_string(byteOffset);
            });
    }

    void checkOrder()
    {
        const int order = ut::cyr_stricmp(m_previous.c_str(), m_word.c_str());
        if (order > 0)
            m_findings.addLazily(CheckID::wordsUnsorted,
                                 [&] { return shownBytes(m_previous) + ", " + shownBytes(m_word); });
        m_isRepeated = order == 0 && m_wordsCount > 1;
    }

    /// The word against the text and the concordance; false when there is more than can be checked.
    bool checkEntry()
    {
        const auto position = [&] { return shownBytes(m_word); };
        const auto textWord = m_textWords.find(m_word);
        if (textWord && !m_textWords.list(*textWord))
            m_isRepeated = true;
        if (m_word.empty())
            m_findings.add(CheckID::wordEmpty,
                           std::string(wordListFileName) + ":" + std::to_string(m_wordsCount));
        else if (m_isRepeated)
            m_findings.addLazily(CheckID::wordsRepeated, position);
        const auto expected = textWord ? m_textWords.versesOf(*textWord) : std::span<const std::uint16_t>();
        const bool isSound = !m_concordance || m_concordance->checkNext(m_word, expected);
        const bool mayStandUnread = m_concordance && m_concordance->namesUnread();
        const bool isTooLong = m_word.size() > CWordIndexer::maxWordBytes; // which is a finding of its own
        if (m_text && !textWord && !m_word.empty() && !mayStandUnread && !isTooLong)
            m_findings.addLazily(CheckID::wordUnused, position);
        return isSound;
    }

    void finish()
    {
        m_textWords.forEachUnlisted([&](const std::string& word, std::uint32_t verse) {
            m_findings.addLazily(CheckID::wordMissing,
                                 [&] { return shownBytes(word) + ": " + m_shape.positionOf(verse); });
        });
        if (m_points && m_points->size() / pointBytes != m_wordsCount)
            m_findings.add(CheckID::wordPointsCount, std::to_string(m_points->size() / pointBytes) + " / " +
                                                         std::to_string(m_wordsCount));
        if (m_concordance)
            m_concordance->finish();
    }

    const std::optional<std::string>& m_points;
    CConcordanceCheck* m_concordance;
    const CheckedShape& m_shape;
    const CheckedText* m_text;
    CFindings& m_findings;
    const WordIndex m_noWords;
    CTextWords m_textWords;
    std::string m_word;
    std::string m_previous;
    bool m_isRepeated = false;
    std::uint64_t m_wordsCount = 0;
};

} // namespace

std::optional<std::uint64_t> checkWords(const std::string& folder, const CheckedShape& shape,
                                        const CheckedText* text, CFindings& findings)
{
    const auto list = readForCheck(folder, wordListFileName, findings);
    const auto points =
        readRecordsForCheck(folder, wordPointsFileName, pointBytes, findings, CheckID::wordPointsMissing);
    const auto conc = readRecordsForCheck(folder, concordanceFileName, concordanceNumberBytes, findings);
    const auto concPoints = readRecordsForCheck(folder, concordancePointsFileName, pointBytes, findings);
    if (!list)
        return std::nullopt;
    std::optional<CConcordanceCheck> concordance;
    if (conc && concPoints)
        concordance.emplace(*concPoints, *conc, shape, text, findings);
    CWordListCheck check(points, concordance ? &*concordance : nullptr, shape, text, findings);
    return check.checkList(*list);
}

} // namespace Kedrin::ModTool
