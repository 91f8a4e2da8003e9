#pragma once

#include <ostream>
#include <string>
#include <vector>

namespace Kedrin::ModTool {

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

/// The lines of a text that is broken at `width` code points. At least one line.
std::vector<std::string> brokenLines(const std::string& utf8, unsigned int width);

} // namespace Kedrin::ModTool
