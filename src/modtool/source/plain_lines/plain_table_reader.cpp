#include "plain_table_reader.h"

#include "ascii.h"
#include "book_ids.h"
#include "messages.h"
#include "module_format.h"
#include "plain_records.h"

#include <algorithm>

namespace Kedrin::ModTool {

namespace {

/// Reads the records of one table.
class CTableReader
{
public:
    CTableReader(std::string_view utf8, const PlainShape& shape, CPlainVerses& verses)
        : m_columns(shape.columns),
          m_records(utf8, shape.delimiter, mostFields(shape.columns)),
          m_verses(verses)
    {}

    void read(bool hasHeader)
    {
        for (bool isHeader = hasHeader; m_records.next();) {
            const std::string_view first = m_records.fields().front().raw;
            if (m_records.flaw() != CPlainRecords::Flaw::none)
                addFlaw();
            else if (first.starts_with('#') && !m_records.fields().front().isQuoted)
                leaveOutAll(ReaderRule::outside);
            else if (isHeader)
                takeHeader(isHeader);
            else
                record();
        }
    }

private:
    /// Where the text is the last column, the delimiters that follow it belong to it.
    static std::size_t mostFields(const PlainColumns& columns)
    {
        const std::size_t count = columns.names.size();
        return columns.text + 1 == count ? count : count + 1;
    }

    void addFlaw()
    {
        const bool isUnclosed = m_records.flaw() == CPlainRecords::Flaw::unclosedQuote;
        bad([&] {
            return std::string(tr(isUnclosed ? translatable("a quotation mark is never closed")
                                             : translatable("text after a closing quotation mark")));
        });
    }

    void bad(const std::function<std::string()>& reason)
    {
        m_verses.badLines().add(m_records.line(), reason);
    }

    void leaveOutAll(ReaderRule why)
    {
        for (const PlainField& field : m_records.fields())
            m_verses.collector().leaveOut(why, field.raw);
        m_verses.collector().found(why, m_records.line());
    }

    void takeHeader(bool& isHeader)
    {
        for (const PlainField& field : m_records.fields())
            m_verses.leaveOutPlace(field.raw);
        isHeader = false;
    }

    void record()
    {
        const std::vector<PlainField>& fields = m_records.fields();
        const std::size_t count = m_columns.names.size();
        if (fields.size() < count && !isComplete(fields))
            return bad([&] {
                return message("has %s, the table has %s", counted(fields.size(), "field", "fields"), count);
            });
        if (fields.size() > count)
            return bad([&] { return message("has more than %s", counted(count, "field", "fields")); });
        if (m_columns.book != PlainColumns::none && !takeBook(fields[m_columns.book]))
            return;
        const std::string chapterField = std::string(trimmed(fields[m_columns.chapter].raw));
        const std::string verseField = std::string(trimmed(fields[m_columns.verse].raw));
        const auto chapter = plainNumber(chapterField);
        const auto verse = parseVerseNumber(verseField);
        if (!chapter || *chapter == 0)
            return bad([&] {
                return message("%s is not a chapter number from 1 to %s", inQuotes(chapterField),
                               maxSourceNumber);
            });
        if (!verse)
            return bad([&] {
                return message("%s is not a verse number from 0 to %s", inQuotes(verseField),
                               maxSourceNumber);
            });
        if (m_verses.beginVerse(*chapter, *verse, m_records.line()))
            addFields();
    }

    /// Whether only further columns are missing.
    bool isComplete(const std::vector<PlainField>& fields) const
    {
        const auto isThere = [&](std::size_t column) {
            return column == PlainColumns::none || column < fields.size();
        };
        return isThere(m_columns.book) && isThere(m_columns.chapter) && isThere(m_columns.verse) &&
               isThere(m_columns.text);
    }

    bool takeBook(const PlainField& field)
    {
        if (field.raw != m_lastBook || m_lastOsis.empty()) {
            m_lastBook = field.raw;
            m_lastOsis = bookOfField(field.text());
        }
        if (m_lastOsis.empty()) {
            const std::string name(trimmed(field.text()));
            return m_verses.beginUnknownBook(name, m_records.line(), [&] {
                return plainNumber(name) ? message("%s is not a book number from 1 to %s", inQuotes(name),
                                                   protestantBooksCount)
                                         : unknownBook(name);
            });
        }
        m_verses.beginBook(m_lastOsis, field.raw, m_records.line());
        return true;
    }

    /// The letters of the record, in their order.
    void addFields()
    {
        const std::vector<PlainField>& fields = m_records.fields();
        for (std::size_t i = 0; i < fields.size(); ++i) {
            if (i == m_columns.text)
                fields[i].isQuoted ? m_verses.addText(fields[i].text(), m_records.line())
                                   : m_verses.addText(fields[i].raw, m_records.line());
            else if (i == m_columns.book || i == m_columns.chapter || i == m_columns.verse)
                m_verses.leaveOutPlace(fields[i].raw);
            else
                m_verses.leaveOut(ReaderRule::furtherColumn, fields[i].raw, m_records.line());
        }
    }

    const PlainColumns& m_columns;
    CPlainRecords m_records;
    CPlainVerses& m_verses;
    std::string_view m_lastBook;
    std::string m_lastOsis;
};

} // namespace

void readPlainTable(std::string_view utf8, const PlainShape& shape, CPlainVerses& verses)
{
    CTableReader(utf8, shape, verses).read(shape.hasHeader);
}

} // namespace Kedrin::ModTool
