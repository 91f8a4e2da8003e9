#include "check_findings.h"

#include "messages.h"
#include "text_encoder.h"
#include "ut_utils.h"

namespace Kedrin::ModTool {

namespace {

bool isControl(char c)
{
    const auto byte = static_cast<unsigned char>(c);
    return byte < 0x20 || byte == 0x7F;
}

std::string withoutControls(std::string_view bytes)
{
    std::string text;
    for (const char c : bytes)
        text += isControl(c) ? ut::format("\\x%02X", static_cast<unsigned int>(static_cast<unsigned char>(c)))
                             : std::string(1, c);
    return text;
}

} // namespace

std::uint64_t CFindings::count(Severity severity) const
{
    std::uint64_t sum = 0;
    for (const auto& [check, finding] : m_findings)
        if (checkOf(check).severity == severity)
            sum += finding.count;
    return sum;
}

std::string shownBytes(std::string_view bytes)
{
    const std::string text = toUtf8(withoutControls(bytes.substr(0, maxShownBytes)));
    return bytes.size() > maxShownBytes ? text + "..." : text;
}

std::string shownPath(std::string_view path) { return withoutControls(path); }

} // namespace Kedrin::ModTool
