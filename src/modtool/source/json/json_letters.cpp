#include "json_letters.h"

#include "html_entities.h"
#include "json_events.h"
#include "letter_proof.h"

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
        const std::size_t end = text[i] == '&' ? text.find(';', i) : std::string_view::npos;
        const auto character =
            end < i + longest ? referencedCharacter(text.substr(i + 1, end - i - 1)) : std::nullopt;
        if (character)
            icu::UnicodeString(static_cast<UChar32>(*character)).toUTF8String(characters);
        else
            characters += text[i];
        i = character ? end : i;
    }
    return characters;
}

class CStrings : public JsonEvents
{
public:
    CStrings(CLetterProof& proof, const CLineCounter& lines) : m_proof(proof), m_lines(lines) {}

    bool string(std::string& text)
    {
        m_proof.compare(resolved(text), m_lines.line());
        return true;
    }

private:
    CLetterProof& m_proof;
    const CLineCounter& m_lines;
};

} // namespace

std::uint64_t proveJsonLetters(const std::string& fileName, std::string_view utf8, std::string_view taken)
{
    CLetterProof proof(fileName, taken);
    const std::string_view part = jsonPart(utf8).value_or("");
    CLineCounter lines(1 + static_cast<std::size_t>(std::count(utf8.begin(), part.begin(), '\n')));
    CStrings strings(proof, lines);
    parseJson(part, lines, strings);
    return proof.finish(lines.line());
}

} // namespace Kedrin::ModTool
