#include "letter_proof.h"

#include "errors.h"
#include "html_entities.h"
#include "letters.h"
#include "messages.h"

#include <unicode/unistr.h>

#include <algorithm>

namespace Kedrin::ModTool {

namespace {

/// The text with its character references resolved.
std::string resolved(std::string_view text)
{
    constexpr std::size_t longest = 12;
    std::string characters;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const std::size_t length =
            text[i] == '&' ? text.substr(i, longest).find(';') : std::string_view::npos;
        const auto character = length != std::string_view::npos
                                   ? referencedCharacter(text.substr(i + 1, length - 1))
                                   : std::nullopt;
        if (character)
            icu::UnicodeString(static_cast<UChar32>(*character)).toUTF8String(characters);
        else
            characters += text[i];
        i += character ? length : 0;
    }
    return characters;
}

} // namespace

void CLetterProof::compare(std::string_view utf8, std::size_t line)
{
    std::string letters;
    m_count += appendLetters(utf8, letters);
    if (!m_rest.starts_with(letters))
        fail(letters, line);
    m_rest.remove_prefix(letters.size());
}

void CLetterProof::compareMarkedText(std::string_view utf8, std::size_t line)
{
    compare(resolved(utf8), line);
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
