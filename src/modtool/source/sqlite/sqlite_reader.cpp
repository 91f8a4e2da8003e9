#include "sqlite_reader.h"

#include "ascii.h"
#include "errors.h"
#include "inline_markup.h"
#include "letter_proof.h"
#include "messages.h"
#include "module_format.h"
#include "rtf_text.h"
#include "sqlite_books.h"
#include "sqlite_columns.h"
#include "sqlite_database.h"
#include "sqlite_info.h"
#include "verse_collector.h"

#include <algorithm>
#include <optional>

namespace Kedrin::ModTool {

namespace {

constexpr std::size_t maxRows = 1000000;

using Table = CSqliteDatabase::Table;

class CSqliteReader
{
public:
    explicit CSqliteReader(const std::string& fileName) : m_fileName(fileName), m_database(fileName) {}

    /// Of a database in memory.
    CSqliteReader(const std::string& fileName, const std::string& bytes)
        : m_fileName(fileName),
          m_database(fileName, bytes)
    {}

    SourceBible read()
    {
        const std::vector<Table> tables = m_database.tables();
        m_columns = verseColumnsOf(tables, m_fileName);
        findRtf();
        CSqliteBooks books(m_database);
        std::vector<std::string> withVerses, others;
        for (const Table& table : tables) {
            if (table.name == m_columns.table)
                continue;
            if (const VerseColumns further = verseColumnsOf(table); hasVerses(m_database, further)) {
                m_furtherTables.push_back(further);
                withVerses.push_back(table.name);
            } else if (!readBooks(table, books) && !readSqliteInfo(m_database, table, m_verses.info())) {
                others.push_back(table.name);
            }
        }
        const std::string numbering = books.findNumbering(lastChapters());
        readVerses(books);
        leaveOutFurtherTables();
        SourceBible bible = m_verses.finish(m_fileName);
        bible.letters = proveLetters();
        bible.findings.say(translatable("source"),
                           message("SQLite, verses of the table %s", inQuotes(m_columns.table)));
        if (m_rtf)
            bible.findings.say(translatable("texts"), message("in RTF, %s", m_rtf->codePage()));
        if (!numbering.empty())
            bible.findings.say(translatable("interpreted"), numbering);
        if (!withVerses.empty())
            bible.findings.say(translatable("left out"), message("other tables with verses: %s",
                                                                 joined(withVerses, ", ").substr(0, 200)));
        if (!others.empty())
            bible.findings.say(translatable("left out"),
                               message("tables without verses: %s", joined(others, ", ").substr(0, 200)));
        return bible;
    }

private:
    std::string valid(std::string_view text, std::size_t row) const
    {
        return validSqliteText(m_fileName, text, row);
    }

    /// Sets m_rtf if a text is in RTF.
    void findRtf()
    {
        constexpr std::size_t enoughBytes = 1u << 20;
        bool isFound = false;
        std::string escaped;
        std::uint64_t byteCount = 0;
        auto rows = m_database.rows(m_columns.table, {m_columns.text});
        for (std::size_t row = 0; row < maxRows && byteCount <= maxSourceBytes && rows.next(); ++row) {
            const std::string_view text = rows.text(0);
            byteCount += text.size();
            isFound = isFound || isRtf(text);
            if (escaped.size() < enoughBytes && text.find('\\') != std::string_view::npos)
                CRtfText::appendEscapedBytes(text, escaped);
        }
        if (isFound)
            m_rtf.emplace(escaped);
    }

    /// The last chapter of each book that has a number.
    CSqliteBooks::LastChapters lastChapters() const
    {
        CSqliteBooks::LastChapters last;
        auto rows = m_database.rows(m_columns.table, m_columns.ofPosition());
        for (std::size_t row = 0; row < maxRows && rows.next(); ++row) {
            const auto id = m_columns.id.empty() ? std::nullopt : splitVerseId(rows.text(0));
            const auto book = numberOf(id ? id->book : rows.text(0));
            const auto chapter = numberOf(id ? id->chapter : rows.text(1));
            if (book)
                last[book->first] = std::max(last[book->first], chapter ? chapter->first : 0);
        }
        return last;
    }

    /// @returns whether it is a table of books
    bool readBooks(const Table& table, CSqliteBooks& books) const
    {
        const std::string number = columnOf(table, {"book_number", "book", "book_id", "id", "number", "b"});
        const std::string longName = columnOf(table, {"long_name", "name", "title", "book_name", "n"});
        const std::string shortName =
            columnOf(table, {"short_name", "abbreviation", "abbrev", "code", "osis"});
        if (number.empty() || (longName.empty() && shortName.empty()))
            return false;
        auto rows = m_database.rows(table.name, {number, longName.empty() ? shortName : longName,
                                                 shortName.empty() ? longName : shortName});
        for (std::size_t row = 1; row < maxSourceBooks && rows.next(); ++row)
            books.add(valid(rows.text(0), row), {valid(rows.text(1), row), valid(rows.text(2), row)});
        return true;
    }

    /// Checks the limits on rows and on all their texts.
    /// @param row  of its table, from 1
    void countRow(std::size_t row, std::size_t byteCount)
    {
        if (row > maxRows)
            failAtLine(m_fileName, row, message("more than %s rows", maxRows));
        m_byteCount += byteCount;
        if (m_byteCount > maxSourceBytes) // rows of a damaged database may share their pages
            throw CBuildError(message("%s: contains more than 64 MiB", m_fileName));
    }

    void readVerses(const CSqliteBooks& books)
    {
        std::vector<std::string> columns = m_columns.ofPosition();
        const int text = static_cast<int>(columns.size());
        columns.push_back(m_columns.text);
        auto rows = m_database.rows(m_columns.table, columns);
        for (std::size_t row = 1; rows.next(); ++row) {
            countRow(row, rows.text(text).size());
            std::string book(rows.text(0)), chapter, verse;
            if (m_columns.id.empty()) {
                chapter = rows.text(1);
                verse = rows.text(2);
            } else if (const auto id = splitVerseId(book)) {
                book = id->book;
                chapter = id->chapter;
                verse = id->verse;
            } else {
                failAtLine(m_fileName, row, message("%s is not a verse number", inQuotes(book)));
            }
            beginVerse(books, book, chapter, verse, row);
            addText(valid(rows.text(text), row), row);
            m_verses.endVerse();
        }
    }

    void leaveOutFurtherTables()
    {
        for (const VerseColumns& columns : m_furtherTables) {
            auto rows = m_database.rows(columns.table, {columns.text});
            for (std::size_t row = 1; rows.next(); ++row) {
                countRow(row, rows.text(0).size());
                m_verses.found(ReaderRule::otherTable, row);
                m_verses.leaveOut(ReaderRule::otherTable, rows.text(0));
            }
        }
    }

    void addText(const std::string& text, std::size_t row)
    {
        if (m_rtf)
            m_rtf->addTo(m_verses, text, row);
        else
            addMarkedText(m_verses, text, row);
    }

    void beginBook(const CSqliteBooks& books, const std::string& number, std::size_t row)
    {
        const std::string osis = books.osisOf(number, row);
        const std::string name = books.nameOf(number);
        if (osis.empty())
            m_verses.beginUnknownBook(
                name,
                atLine(
                    m_fileName, row,
                    message(
                        "%s is not a known book: write its number, its English name or its OSIS id, such as "
                        "Gen",
                        inQuotes(name))));
        else
            m_verses.beginBook(osis);
    }

    void beginVerse(const CSqliteBooks& books, const std::string& book, const std::string& chapter,
                    const std::string& verse, std::size_t row)
    {
        if (book != m_book || !m_verses.inBook()) {
            m_book = valid(book, row);
            beginBook(books, book, row);
            const CSqliteBooks::Book titles = books.titlesOf(book);
            m_verses.titles() = {titles.longName, titles.shortName, titles.shortName};
            m_verses.beginChapter();
        }
        const auto number = numberOf(chapter);
        if (!number || number->first != number->last)
            failAtLine(m_fileName, row, message("%s is not a chapter number", inQuotes(valid(chapter, row))));
        const auto verseNumber = numberOf(verse);
        if (!verseNumber)
            failAtLine(m_fileName, row, message("%s is not a verse number", inQuotes(valid(verse, row))));
        m_verses.beginVerse(number->first, *verseNumber, row);
    }

    /// Reads the texts again, by a query of their own.
    std::uint64_t proveLetters()
    {
        const std::string taken = m_verses.takeLetters();
        CLetterProof proof(m_fileName, taken);
        auto rows = m_database.rows(m_columns.table, {m_columns.text});
        std::size_t row = 0;
        while (rows.next())
            if (++row; m_rtf)
                proof.compare(m_rtf->withCharacters(rows.text(0)), row);
            else
                proof.compareMarkedText(rows.text(0), row);
        for (const VerseColumns& columns : m_furtherTables) {
            auto further = m_database.rows(columns.table, {columns.text});
            for (row = 0; further.next();)
                proof.compare(further.text(0), ++row);
        }
        return proof.finish(row);
    }

    const std::string& m_fileName;
    CSqliteDatabase m_database;
    VerseColumns m_columns;
    std::vector<VerseColumns> m_furtherTables; ///< of verses too; left out
    std::uint64_t m_byteCount = 0;             ///< of all texts so far
    std::optional<CRtfText> m_rtf;             ///< of texts in RTF
    CVerseCollector m_verses;
    std::string m_book; ///< as named in the verses
};

} // namespace

SourceBible readSqlite(const std::string& fileName) { return CSqliteReader(fileName).read(); }

SourceBible readSqlite(const std::string& fileName, const std::string& bytes)
{
    return CSqliteReader(fileName, bytes).read();
}

} // namespace Kedrin::ModTool
