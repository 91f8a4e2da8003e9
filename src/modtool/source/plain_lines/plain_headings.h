#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace Kedrin::ModTool {

/// A line of a plain text that names a book, a chapter, or both: "### Genesis", "Битие", "ГЛАВА 1", "## Битие, глава 1".
struct PlainHeading
{
    std::string osis;                    ///< "" where it names only a chapter
    std::string_view name;               ///< of the book, as it is written
    std::optional<unsigned int> chapter; ///< nothing where it names only a book
};

/// Reads a heading. A name may be cut short where the line begins with '#', as only headings do.
/// @returns nothing where the line is none
std::optional<PlainHeading> plainHeading(std::string_view line);

/// How many '#' the line begins with.
std::size_t headingLevel(std::string_view line);

/// The book that a file is called after: "genesis.txt", "01-genesis.dat", "01.dat"; a number alone counts the books in
/// Protestant order. "" where the name says none.
std::string bookOfFileName(const std::string& path);

} // namespace Kedrin::ModTool
