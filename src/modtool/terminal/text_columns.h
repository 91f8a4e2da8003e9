#pragma once

#include <cstddef>
#include <functional>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

namespace Kedrin::ModTool {

/// Width of the labels in a report.
inline constexpr std::size_t labelColumns = 14;

/// Number of code points, combining marks included.
std::size_t charactersIn(std::string_view utf8);

/// The text padded with spaces to `columns` characters; a wider text is returned unchanged.
/// @param utf8  one column per character
std::string padded(const std::string& utf8, std::size_t columns);

/// The width of the terminal that `out` writes to; `otherwise` if it is not a terminal.
unsigned int terminalWidth(const std::ostream& out, unsigned int otherwise);

/// Texts side by side in columns of equal width, wrapped at spaces; a word longer than a column is split.
/// Widths count code points, which suffices for text from Windows-1251.
class CTextColumns
{
public:
    static constexpr unsigned int leastWidth = 10; ///< of a column, however narrow the terminal

    CTextColumns(std::size_t columnsCount, unsigned int totalWidth);

    /// Writes one row: as many lines as its longest cell needs, " | " between columns, no trailing spaces.
    /// @param cells  UTF-8, one per column
    void writeRow(std::ostream& out, const std::vector<std::string>& cells) const;

    /// A line of dashes with "+" at the column borders.
    void writeRule(std::ostream& out) const;

    unsigned int width() const { return m_width; }

private:
    std::size_t m_columnsCount;
    unsigned int m_width;
};

/// The lines of a text that is broken at blanks; a longer word is broken anywhere. At least one line.
/// @param bytesThatFit  how many bytes at the beginning of a text fit on a line: all of them, or at least one
std::vector<std::string> brokenLines(std::string_view text,
                                     const std::function<std::size_t(std::string_view)>& bytesThatFit);

/// The same for lines of at most `width` code points.
std::vector<std::string> brokenLines(std::string_view utf8, unsigned int width);

} // namespace Kedrin::ModTool
