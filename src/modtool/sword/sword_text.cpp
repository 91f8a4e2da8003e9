#include "sword_text.h"

#include "note_spacing.h"

#include <unicode/uchar.h>
#include <unicode/unistr.h>
#include <unicode/utf8.h>

#include <algorithm>
#include <utility>

namespace Kedrin::ModTool {

namespace {

constexpr char gap = '\0'; // marks where a note was removed

/// Letters in capitals, one for one.
std::string inCapitals(std::string_view utf8)
{
    std::string capitals;
    for (std::int32_t i = 0; i < static_cast<std::int32_t>(utf8.size());) {
        UChar32 c;
        U8_NEXT(reinterpret_cast<const std::uint8_t*>(utf8.data()), i, static_cast<std::int32_t>(utf8.size()),
                c);
        if (c == 0)
            capitals += gap;
        else
            icu::UnicodeString(u_isalpha(c) ? u_toupper(c) : c).toUTF8String(capitals);
    }
    return capitals;
}

/// At least the first two characters after the gap; at the end of the verse, a space.
std::string twoCharacters(const std::string& text, std::size_t begin)
{
    constexpr std::size_t most = std::size_t{2} * U8_MAX_LENGTH;
    std::string characters;
    for (; begin < text.size() && characters.size() < most; ++begin)
        if (text[begin] != gap)
            characters += text[begin];
    return characters.size() < most ? characters + ' ' : characters;
}

} // namespace

void CSwordText::add(std::string_view utf8, std::size_t piece)
{
    m_hasGapInWord = false;
    m_lastBegin = m_text.size();
    m_lastPiece = piece;
    m_text += utf8;
}

void CSwordText::addGap()
{
    if (m_isInWord)
        m_hasGapInWord = true;
    else
        m_text += gap;
}

void CSwordText::setInWord(bool isInWord)
{
    m_isInWord = isInWord;
    if (!isInWord && std::exchange(m_hasGapInWord, false))
        addGap();
}

void CSwordText::setInName(bool isInName, std::size_t piece)
{
    if (std::exchange(m_isInName, isInName) && !isInName && m_lastPiece + 1 == piece)
        m_text.replace(m_lastBegin, std::string::npos,
                       inCapitals(std::string_view(m_text).substr(m_lastBegin)));
}

std::string CSwordText::take() const
{
    std::string joined;
    for (std::size_t begin = 0; begin <= m_text.size();) {
        const std::size_t end = std::min(m_text.find(gap, begin), m_text.size());
        const std::string_view part = std::string_view(m_text).substr(begin, end - begin);
        if (begin != 0 && !part.empty() && needsSpaceBetween(joined, twoCharacters(m_text, begin)))
            joined += ' ';
        joined += part;
        begin = end + 1;
    }
    return joined;
}

} // namespace Kedrin::ModTool
