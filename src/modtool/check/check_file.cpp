#include "check_file.h"

#include "errors.h"
#include "input_file.h"
#include "messages.h"
#include "module_format.h"

#include <algorithm>
#include <cerrno>

namespace Kedrin::ModTool {

namespace {

std::uint32_t byteAt(std::string_view content, std::size_t i)
{
    return static_cast<unsigned char>(content[i]);
}

} // namespace

std::optional<std::string> readForCheck(const std::string& folder, std::string_view name, CFindings& findings,
                                        CheckID missing)
{
    const std::string path = folder + '/' + std::string(name);
    const ut::CInputFile file(path.c_str());
    if (!file.isOpen()) {
        if (errno == EMFILE || errno == ENFILE || errno == ENOMEM) // which is not the module's fault
            throw CCheckError(message("%s: cannot be read", shownPath(path)) + systemReason(errno));
        findings.add(missing, name);
        return std::nullopt;
    }
    if (file.size() > maxCheckedFileBytes) {
        findings.add(CheckID::sizeLimit, message("%s: %s bytes", name, file.size()));
        return std::nullopt;
    }
    std::string content(static_cast<std::size_t>(file.size()), '\0');
    if (file.readAt(0, content.data(), content.size()) != content.size())
        throw CCheckError(message("%s: cannot be read", shownPath(path)));
    return content;
}

std::optional<std::string> readRecordsForCheck(const std::string& folder, std::string_view name,
                                               std::size_t recordBytes, CFindings& findings, CheckID missing)
{
    std::optional<std::string> content = readForCheck(folder, name, findings, missing);
    if (content && content->size() % recordBytes != 0)
        findings.add(CheckID::filePartialRecord, message("%s: %s bytes", name, content->size()));
    return content;
}

std::uint32_t unsigned16At(std::string_view content, std::size_t recordIndex)
{
    return byteAt(content, 2 * recordIndex) | byteAt(content, 2 * recordIndex + 1) << 8;
}

std::uint32_t unsigned32At(std::string_view content, std::size_t recordIndex)
{
    return unsigned16At(content, 2 * recordIndex) | unsigned16At(content, 2 * recordIndex + 1) << 16;
}

std::string_view takeLine(std::string_view& rest)
{
    const std::string_view line = rest.substr(0, rest.find('\n'));
    rest.remove_prefix(std::min(line.size() + 1, rest.size()));
    return line;
}

std::string_view lineText(std::string_view line)
{
    if (line.ends_with('\r'))
        line.remove_suffix(1);
    return line.substr(0, line.find('\0'));
}

bool hasBadByte(std::string_view text)
{
    return std::any_of(text.begin(), text.end(), [](char c) {
        const auto byte = static_cast<unsigned char>(c);
        return byte < 0x20 || byte == 0x7F || byte == 0x98;
    });
}

} // namespace Kedrin::ModTool
