#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace Kedrin::ModTool {

/// A field of a table.
struct PlainField
{
    std::string_view raw; ///< what stands between the delimiters, or between the quotation marks
    bool isQuoted;

    /// The field with single quotation marks where a quoted one has two.
    std::string text() const;
};

/// Divides a table into records and fields. Where the delimiter is a comma or semicolon, a field that begins with a
/// quotation mark goes on to the next single one, over delimiters and line ends.
class CPlainRecords
{
public:
    enum class Flaw
    {
        none,
        unclosedQuote,   ///< the record goes on to the end of the table
        textBehindQuote, ///< between a closing quotation mark and the next delimiter
    };

    /// @param utf8       outlives the object and the fields
    /// @param maxFields  the last one has all that follows, delimiters included; where it is quoted, what follows is
    ///                   one field more
    CPlainRecords(std::string_view utf8, std::string_view delimiter, std::size_t maxFields);

    /// Goes on to the next record; blank lines are passed over.
    /// @returns whether there is one
    bool next();

    const std::vector<PlainField>& fields() const { return m_fields; }
    Flaw flaw() const { return m_flaw; }
    std::size_t line() const { return m_line; } ///< where the record begins, from 1

private:
    void takeRecord();
    void takeField();
    void takeQuotedField();
    std::size_t lineEnd() const;

    std::string_view m_text;
    std::string_view m_delimiter;
    std::size_t m_maxFields;
    bool m_mayQuote;
    std::size_t m_next = 0; ///< of the text: what is not yet read
    std::size_t m_line = 0;
    std::size_t m_nextLine = 1;
    bool m_atEnd = false; ///< of the record
    Flaw m_flaw = Flaw::none;
    std::vector<PlainField> m_fields;
};

} // namespace Kedrin::ModTool
