#pragma once

#include <cstddef>
#include <functional>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

namespace Kedrin::ModTool {

/// Where the lines of a report go on after their labels.
inline constexpr std::size_t labelColumns = 14;

/// How many characters the text has, marks that stand on others included.
std::size_t charactersIn(std::string_view utf8);

/// The text and as many blanks as make it `columns` characters wide; a text that is wider stays as it is.
/// @param utf8  one column a character
std::string padded(const std::string& utf8, std::size_t columns);

/// The width of the terminal that `out` writes to; `otherwise` where it writes to none.
unsigned int terminalWidth(const std::ostream& out, unsigned int otherwise);

/// Texts side by side in columns of equal width, broken at blanks; a longer word is broken anywhere. Widths count code
/// points, which is what a terminal shows of text that comes from Windows-1251.
class CTextColumns
{
public:
    static constexpr unsigned int leastWidth = 10; ///< of a column, however narrow the terminal

    CTextColumns(std::size_t columnsCount, unsigned int totalWidth);

    /// Writes one row: as many lines as its longest cell needs, " | " between columns, no blanks at line ends.
    /// @param cells  UTF-8, one a column
    void writeRow(std::ostream& out, const std::vector<std::string>& cells) const;

    /// A line of dashes, broken by the columns' borders.
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
