#include "check_concordance.h"

#include "check_file.h"
#include "messages.h"
#include "module_format.h"

#include <algorithm>
#include <limits>

namespace Kedrin::ModTool {

CConcordanceCheck::CConcordanceCheck(std::string_view concPoints, std::string_view conc,
                                     const CheckedShape& shape, const CheckedText* text, CFindings& findings)
    : m_concPoints(concPoints),
      m_conc(conc),
      m_shape(shape),
      m_text(text),
      m_findings(findings),
      m_versesCount(text                 ? text->versesCount
                    : shape.hasStructure ? shape.totalVerses
                                         : std::numeric_limits<std::uint64_t>::max())
{}

bool CConcordanceCheck::checkNext(std::string_view word, std::span<const std::uint16_t> expected)
{
    m_namesUnread = false;
    const bool hasPoint = m_wordIndex < m_concPoints.size() / pointBytes;
    const bool hasEntry = hasPoint && readEntry(word);
    m_allReached &= hasEntry;
    ++m_wordIndex;
    if (!hasEntry)
        return true;
    m_numbersRead += m_numbers.size();
    if (m_numbersRead > maxCheckedEntries) {
        m_findings.add(CheckID::sizeLimit, concordanceFileName);
        return false;
    }
    const auto isNext = [](std::uint32_t number, std::uint16_t verse) { return number == verse + 1u; };
    if (std::equal(m_numbers.begin(), m_numbers.end(), expected.begin(), expected.end(), isNext))
        return true;
    judgeNumbers(word);
    if (m_text)
        compare(word, expected);
    return true;
}

bool CConcordanceCheck::readEntry(std::string_view word)
{
    const std::uint64_t recordsCount = m_conc.size() / concordanceNumberBytes;
    const std::uint64_t begin = unsigned32At(m_concPoints, m_wordIndex);
    const std::uint64_t count = begin < recordsCount ? unsigned16At(m_conc, begin) : 0;
    if (begin >= recordsCount || begin + 1 + count > recordsCount) {
        m_findings.addLazily(CheckID::concOffset, [&] {
            return shownBytes(word) + ": " + std::to_string(begin) + " / " + std::to_string(recordsCount);
        });
        return false;
    }
    m_spans.add({begin, begin + 1 + count, m_wordIndex});
    m_numbers.resize(count);
    for (std::uint64_t i = 0; i < count; ++i)
        m_numbers[i] = unsigned16At(m_conc, begin + 1 + i);
    return true;
}

/// Checks the entry by itself. Leaves its numbers sorted, without duplicates and invalid ones.
void CConcordanceCheck::judgeNumbers(std::string_view word)
{
    const auto position = [&] { return shownBytes(word); };
    const auto isWrong = [&](std::uint32_t number) { return number == 0 || number > m_versesCount; };
    const auto wrong = std::find_if(m_numbers.begin(), m_numbers.end(), isWrong);
    if (wrong != m_numbers.end())
        m_findings.addLazily(CheckID::concVerseNumber,
                             [&] { return position() + ": " + std::to_string(*wrong); });
    std::erase_if(m_numbers, isWrong);
    if (!std::is_sorted(m_numbers.begin(), m_numbers.end()))
        m_findings.addLazily(CheckID::concOrder, position);
    std::sort(m_numbers.begin(), m_numbers.end());
    const auto end = std::unique(m_numbers.begin(), m_numbers.end());
    if (end != m_numbers.end())
        m_findings.addLazily(CheckID::concRepeated, position);
    m_numbers.erase(end, m_numbers.end());
}

void CConcordanceCheck::compare(std::string_view word, std::span<const std::uint16_t> expected)
{
    auto next = expected.begin();
    for (const std::uint32_t number : m_numbers) {
        const std::uint32_t verse = number - 1;
        for (; next != expected.end() && *next < verse; ++next)
            addVerse(CheckID::concMissingVerse, word, *next);
        if (next != expected.end() && *next == verse)
            ++next;
        else if (m_text->isUnread[verse])
            m_namesUnread = true;
        else if (!expected.empty()) // a word without verses is a separate finding
            addVerse(CheckID::concExtraVerse, word, verse);
    }
    for (; next != expected.end(); ++next)
        addVerse(CheckID::concMissingVerse, word, *next);
}

void CConcordanceCheck::addVerse(CheckID check, std::string_view word, std::uint32_t verse)
{
    m_findings.addLazily(check, [&] { return shownBytes(word) + ": " + m_shape.positionOf(verse); });
}

void CConcordanceCheck::finish()
{
    const std::uint64_t pointsCount = m_concPoints.size() / pointBytes;
    const auto counts = [&] { return std::to_string(pointsCount) + " / " + std::to_string(m_wordIndex); };
    if (pointsCount < m_wordIndex)
        m_findings.addLazily(CheckID::concPointsShort, counts);
    if (pointsCount > m_wordIndex)
        m_findings.addLazily(CheckID::concPointsSurplus, counts);
    m_spans.forEachFault(
        m_conc.size() / concordanceNumberBytes,
        [&](std::uint32_t word) {
            m_findings.addLazily(CheckID::concOverlap, [&] { return message("word %s", word + 1); });
        },
        [&](std::uint64_t begin, std::uint64_t end) {
            if (m_allReached) // otherwise they belong to the words not reached
                m_findings.addLazily(CheckID::concUnreachable, [&] {
                    return std::string(concordanceFileName) + ": " + std::to_string(begin) + "-" +
                           std::to_string(end - 1);
                });
        });
}

} // namespace Kedrin::ModTool
