#include "letter_account.h"

#include "letters.h"

#include <algorithm>

namespace Kedrin::ModTool {

std::uint64_t CGivenLetters::add(std::string_view utf8)
{
    const std::uint64_t count = appendLetters(utf8, m_letters);
    m_count += count;
    return count;
}

std::uint64_t CGrowingText::lettersOf(std::string_view utf8)
{
    m_byteCount = std::min(m_byteCount, utf8.size()); // blanks at its end may have gone
    m_letters += countLetters(utf8.substr(m_byteCount));
    m_byteCount = utf8.size();
    return m_letters;
}

} // namespace Kedrin::ModTool
