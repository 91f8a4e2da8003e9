#include "letter_proof.h"

#include "errors.h"
#include "letters.h"
#include "messages.h"

#include <algorithm>

namespace Kedrin::ModTool {

void CLetterProof::compare(std::string_view utf8, std::size_t line)
{
    std::string letters;
    m_count += appendLetters(utf8, letters);
    if (!m_rest.starts_with(letters))
        fail(letters, line);
    m_rest.remove_prefix(letters.size());
}

std::uint64_t CLetterProof::finish(std::size_t line)
{
    if (!m_rest.empty())
        fail("", line);
    return m_count;
}

void CLetterProof::fail(std::string_view letters, std::size_t line) const
{
    const auto isWithinCharacter = [](char c) { return (static_cast<unsigned char>(c) & 0xC0u) == 0x80; };
    auto same = static_cast<std::size_t>(
        std::mismatch(letters.begin(), letters.end(), m_rest.begin(), m_rest.end()).first - letters.begin());
    while (same > 0 && same < letters.size() && isWithinCharacter(letters[same]))
        --same;
    failAtLine(
        m_fileName, line,
        message("the source has %s here, but %s was read; this is a bug in kedrin-module, please report it",
                inQuotes(letters.substr(same)), inQuotes(m_rest.substr(same))));
}

} // namespace Kedrin::ModTool
