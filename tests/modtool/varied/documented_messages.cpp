#include "documented_messages.h"

#include <filesystem>
#include <fstream>
#include <iterator>

namespace varied_test {

namespace {

constexpr std::string_view program = "kedrin-module: ";
constexpr std::string_view badLine = "  line "; ///< of plain lines, one of several

/// Whether the text is of this pattern; recursion ends with its wildcards.
bool isLike(std::string_view text, std::string_view pattern)
{
    const std::size_t sign = pattern.find('%');
    if (sign == std::string_view::npos)
        return text == pattern;
    if (!text.starts_with(pattern.substr(0, sign)))
        return false;
    text.remove_prefix(sign);
    const std::string_view rest = pattern.substr(sign + 2);
    const std::string_view next = rest.substr(0, rest.find('%'));
    if (rest.empty())
        return true;
    for (std::size_t i = text.find(next); i != std::string_view::npos; i = text.find(next, i + 1))
        if (isLike(text.substr(i), rest))
            return true;
    return false;
}

/// What stands in a code span may be broken over lines.
std::string inOneLine(std::string_view span)
{
    std::string line;
    for (const char c : span)
        line += c == '\n' ? ' ' : c;
    return line;
}

} // namespace

CDocumentedMessages::CDocumentedMessages(const std::string& folder)
{
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
        if (entry.path().extension() != ".md")
            continue;
        std::ifstream in(entry.path());
        const std::string page(std::istreambuf_iterator<char>(in), {});
        for (std::size_t begin = page.find('`'); begin != std::string::npos; begin = page.find('`', begin)) {
            const std::size_t end = page.find('`', begin + 1);
            if (end == std::string::npos)
                break;
            const std::string span = inOneLine(std::string_view(page).substr(begin + 1, end - begin - 1));
            if (span.find(' ') != std::string::npos)
                m_patterns.push_back(span);
            begin = end + 1;
        }
    }
}

std::string CDocumentedMessages::firstUndocumented(std::string_view errors) const
{
    while (!errors.empty()) {
        std::string_view line = errors.substr(0, errors.find('\n'));
        errors.remove_prefix(std::min(line.size() + 1, errors.size()));
        for (const std::string_view start : {program, badLine})
            if (line.starts_with(start))
                line.remove_prefix(line.find(": ") + 2);
        if (line.ends_with("?)"))
            line = line.substr(0, line.rfind(" (did you mean "));
        bool isKnown = false;
        for (const std::string& pattern : m_patterns)
            isKnown = isKnown || isLike(line, pattern);
        if (!isKnown)
            return std::string(line);
    }
    return "";
}

} // namespace varied_test
