#pragma once

#include "sqlite_database.h"

#include <map>
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

    /// @param isSpaced  books are numbered from 10 to 790 in tens, not from 1 to 66
    explicit CSqliteBooks(const CSqliteDatabase& database, bool isSpaced)
        : m_fileName(database.fileName()),
          m_isSpaced(isSpaced)
    {}

    void add(const std::string& number, const Book& book) { m_books[number] = book; }

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
    std::string ofNumber(std::string_view number) const;

    const std::string& m_fileName;
    bool m_isSpaced;
    std::map<std::string, Book, std::less<>> m_books;
};

} // namespace Kedrin::ModTool
