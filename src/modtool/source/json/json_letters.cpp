#include "json_letters.h"

#include "json_events.h"
#include "letter_proof.h"

#include <algorithm>

namespace Kedrin::ModTool {

namespace {

class CStrings : public JsonEvents
{
public:
    CStrings(CLetterProof& proof, const CLineCounter& lines) : m_proof(proof), m_lines(lines) {}

    bool string(std::string& text)
    {
        m_proof.compareMarkedText(text, m_lines.line());
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
    const std::string_view part = jsonPart(utf8).value_or(utf8.substr(0, 0));
    CLineCounter lines(1 + static_cast<std::size_t>(std::count(utf8.begin(), part.begin(), '\n')));
    CStrings strings(proof, lines);
    parseJson(part, lines, strings);
    return proof.finish(lines.line());
}

} // namespace Kedrin::ModTool
