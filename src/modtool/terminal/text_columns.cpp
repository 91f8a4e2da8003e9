#include "text_columns.h"

#include <sys/ioctl.h>
#include <unistd.h>

#include <algorithm>
#include <iostream>

namespace Kedrin::ModTool {

namespace {

constexpr std::string_view border = " | ";

bool beginsCharacter(char c) { return (static_cast<unsigned char>(c) & 0xC0) != 0x80; }

/// Bytes of the first `count` characters.
std::size_t bytesOf(std::string_view utf8, std::size_t count)
{
    std::size_t i = 0;
    for (; i < utf8.size(); ++i)
        if (beginsCharacter(utf8[i]) && count-- == 0)
            break;
    return i;
}

void writeTrimmed(std::ostream& out, std::string line)
{
    line.erase(line.find_last_not_of(' ') + 1);
    out << line << '\n';
}

} // namespace

std::size_t charactersIn(std::string_view utf8)
{
    return static_cast<std::size_t>(std::count_if(utf8.begin(), utf8.end(), beginsCharacter));
}

std::string padded(const std::string& utf8, std::size_t columns)
{
    return utf8 + std::string(columns - std::min(columns, charactersIn(utf8)), ' ');
}

unsigned int terminalWidth(const std::ostream& out, unsigned int otherwise)
{
    winsize size{};
    if (out.rdbuf() != std::cout.rdbuf() || ::ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) != 0 ||
        size.ws_col == 0)
        return otherwise;
    return size.ws_col;
}

std::vector<std::string> brokenLines(std::string_view text,
                                     const std::function<std::size_t(std::string_view)>& bytesThatFit)
{
    std::vector<std::string> lines;
    std::size_t most = bytesThatFit(text);
    for (; most < text.size(); most = bytesThatFit(text)) {
        const std::size_t blank = text.rfind(' ', most);
        const bool atBlank = blank != std::string_view::npos && blank != 0;
        lines.emplace_back(text.substr(0, atBlank ? blank : most));
        text.remove_prefix(atBlank ? blank + 1 : most);
    }
    if (!text.empty() || lines.empty())
        lines.emplace_back(text);
    return lines;
}

std::vector<std::string> brokenLines(std::string_view utf8, unsigned int width)
{
    return brokenLines(utf8, [=](std::string_view text) { return bytesOf(text, width); });
}

CTextColumns::CTextColumns(std::size_t columnsCount, unsigned int totalWidth) : m_columnsCount(columnsCount)
{
    const auto count = static_cast<unsigned int>(columnsCount);
    const unsigned int borders = (count - 1) * static_cast<unsigned int>(border.size());
    m_width = std::max(leastWidth, totalWidth > borders ? (totalWidth - borders) / count : 0);
}

void CTextColumns::writeRow(std::ostream& out, const std::vector<std::string>& cells) const
{
    std::vector<std::vector<std::string>> columns;
    std::size_t linesCount = 0;
    for (const std::string& cell : cells) {
        columns.push_back(brokenLines(cell, m_width));
        linesCount = std::max(linesCount, columns.back().size());
    }
    for (std::size_t i = 0; i < linesCount; ++i) {
        std::string line;
        for (std::size_t column = 0; column < columns.size(); ++column) {
            const std::string text = i < columns[column].size() ? columns[column][i] : std::string();
            line += column == 0 ? "" : border;
            line += text + std::string(m_width - charactersIn(text), ' ');
        }
        writeTrimmed(out, line);
    }
}

void CTextColumns::writeRule(std::ostream& out) const
{
    for (std::size_t column = 0; column < m_columnsCount; ++column)
        out << (column == 0 ? "" : "-+-") << std::string(m_width, '-');
    out << '\n';
}

} // namespace Kedrin::ModTool
