#pragma once

#include "verse_starts.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace Kedrin::ModTool {

/// The columns of a table.
struct PlainColumns
{
    static constexpr std::size_t none = ~std::size_t(0);

    std::vector<std::string> names; ///< of the header; "" each where there is none
    std::size_t book = none;
    std::size_t chapter = none;
    std::size_t verse = none;
    std::size_t text = none;
};

/// How a plain text is to be read.
struct PlainShape
{
    std::string_view delimiter;            ///< of a table; "" for lines
    PlainColumns columns;                  ///< of a table
    bool hasHeader = false;                ///< of a table
    VerseForm form = VerseForm::reference; ///< of lines

    bool isTable() const { return !delimiter.empty(); }
    bool namesBooks() const;  ///< in each record or line
    std::string text() const; ///< for the report: "CSV with a header: book, chapter, verse, text"
};

/// What the first lines of a text are, by the rules of doc/formats/plain-lines.md.
/// @param hasBook  whether the book is known otherwise than by the text
/// @returns nothing where they are none of these
std::optional<PlainShape> plainShapeOf(std::string_view utf8, bool hasBook);

/// Whether a line with tabs names the columns of a table, with one of books.
bool isTableHeader(std::string_view line);

/// The book that a field of a table means: a name, a number from 1 to 66, "01O" or "40N". "" where it is none.
std::string bookOfField(std::string_view field);

} // namespace Kedrin::ModTool
