#pragma once

#include "sqlite_database.h"

#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace Kedrin::ModTool {

/// Identifies the books of a database by the numbers in its verses and by the titles in its table of books.
class CSqliteBooks
{
public:
    struct Book
    {
        std::string longName;
        std::string shortName;
    };

    using LastChapters =
        std::map<unsigned int, unsigned int>; ///< of the verses, by the numbers of their books

    explicit CSqliteBooks(const CSqliteDatabase& database) : m_fileName(database.fileName()) {}

    void add(const std::string& number, const Book& book) { m_books[number] = book; }

    /// Finds whether books are numbered from 1 to 66 or from 10 to 790 in tens. Call after add() and before osisOf().
    /// @returns for the report, how the numbers were interpreted; "" if numbers or names left no doubt
    /// @throws CBuildError
    ///     "%s: the numbers of books may be in tens (10 for Gen) or from 1 to 66 (10 for 2Sam): add a table of books
    ///     with their names"
    std::string findNumbering(const LastChapters& lastChapters);

    /// The OSIS id of a book, by number or name; "" for one that nobody knows.
    /// @param row  for the error
    /// @throws CBuildError
    ///     "%s:%u: the book is %s by its number, but %s by its name: correct one of them"
    std::string osisOf(std::string_view number, std::size_t row) const;

    /// What the database calls a book.
    std::string nameOf(std::string_view number) const;

    /// Its titles in the table of books, or empty ones.
    Book titlesOf(std::string_view number) const;

private:
    std::optional<bool> areTitlesInTens() const;
    std::string ofNumber(std::string_view number) const;

    const std::string& m_fileName;
    bool m_isSpaced = false; ///< numbered in tens
    std::map<std::string, Book, std::less<>> m_books;
};

} // namespace Kedrin::ModTool
