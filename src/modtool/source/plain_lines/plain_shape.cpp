#include "plain_shape.h"

#include "ascii.h"
#include "book_finder.h"
#include "book_ids.h"
#include "book_names.h"
#include "messages.h"
#include "plain_headings.h"
#include "plain_records.h"

#include <algorithm>
#include <iterator>
#include <span>

namespace Kedrin::ModTool {

namespace {

constexpr std::size_t linesRead = 20, maxColumns = 100, fieldsOfVerse = 4;
constexpr std::string_view delimiters[] = {"||", "|", "\t", ";", ","};
constexpr unsigned int oldTestament = 39;

constexpr std::string_view bookNames[] = {"book",       "b",      "bookname", "bookid",
                                          "booknumber", "booknr", "bnumber",  "книга"};
constexpr std::string_view chapterNames[] = {"chapter",   "c",       "ch",   "chapternumber",
                                             "chapternr", "cnumber", "глава"};
constexpr std::string_view verseNames[] = {"verse", "v", "vs", "versenumber", "versenr", "vnumber", "стих"};
constexpr std::string_view textNames[] = {"text", "t", "scripture", "content", "versetext", "текст"};

bool isVerseNumber(std::string_view field) { return parseVerseNumber(field).has_value(); }

/// The first lines that are neither blank nor without letters.
std::vector<std::string_view> firstLines(std::string_view utf8)
{
    std::vector<std::string_view> lines;
    while (!utf8.empty() && lines.size() < linesRead) {
        const std::string_view line = utf8.substr(0, utf8.find('\n'));
        utf8.remove_prefix(std::min(line.size() + 1, utf8.size()));
        if (!isBlank(line))
            lines.push_back(trimmed(line));
    }
    return lines;
}

/// The first field whose name is one of `names`.
std::size_t columnCalled(const std::vector<std::string>& columns, std::span<const std::string_view> names)
{
    for (std::size_t i = 0; i < columns.size(); ++i)
        if (std::find(names.begin(), names.end(), nameKey(columns[i])) != names.end())
            return i;
    return PlainColumns::none;
}

std::optional<PlainColumns> headerOf(const CPlainRecords& records, bool hasBook)
{
    constexpr std::size_t maxNameBytes = 100;
    PlainColumns columns;
    for (const PlainField& field : records.fields())
        columns.names.push_back(field.raw.size() > maxNameBytes ? "" : std::string(trimmed(field.text())));
    columns.book = columnCalled(columns.names, bookNames);
    columns.chapter = columnCalled(columns.names, chapterNames);
    columns.verse = columnCalled(columns.names, verseNames);
    columns.text = columnCalled(columns.names, textNames);
    const bool isHeader = columns.chapter != PlainColumns::none && columns.verse != PlainColumns::none &&
                          columns.text != PlainColumns::none &&
                          (hasBook || columns.book != PlainColumns::none);
    return isHeader ? std::optional(columns) : std::nullopt;
}

bool isRecordOfVerse(const std::vector<PlainField>& fields)
{
    return fields.size() == fieldsOfVerse && plainNumber(trimmed(fields[1].text())) &&
           isVerseNumber(fields[2].text());
}

std::optional<PlainShape> tableOf(std::string_view utf8, std::string_view delimiter, bool hasBook)
{
    PlainShape shape;
    shape.delimiter = delimiter;
    CPlainRecords first(utf8, delimiter, maxColumns);
    while (first.next())
        if (!first.fields()[0].raw.starts_with('#')) {
            if (auto columns = headerOf(first, hasBook)) {
                shape.columns = std::move(*columns);
                shape.hasHeader = true;
                return shape;
            }
            break;
        }
    std::size_t all = 0, fitting = 0;
    bool hasBookName = false;
    for (CPlainRecords records(utf8, delimiter, fieldsOfVerse); all < linesRead && records.next();) {
        if (records.fields()[0].raw.starts_with('#'))
            continue;
        ++all;
        if (!isRecordOfVerse(records.fields()))
            continue;
        ++fitting;
        hasBookName = hasBookName || !bookOfField(records.fields()[0].text()).empty();
    }
    if (!hasBookName || fitting * 2 < all)
        return std::nullopt;
    shape.columns = {std::vector<std::string>(fieldsOfVerse), 0, 1, 2, 3};
    return shape;
}

/// Whether at least half of the lines that are no headings begin in this form.
bool mostAre(const std::vector<std::string_view>& lines, VerseForm form, bool hasBook)
{
    std::size_t verses = 0, others = 0;
    bool namesBook = form == VerseForm::chapterVerse || (hasBook && form == VerseForm::verse);
    for (const std::string_view line : lines) {
        const auto start = verseStart(line, form);
        const auto heading = plainHeading(line);
        if (heading)
            namesBook = namesBook || !heading->osis.empty();
        else if (start) {
            namesBook = namesBook || !bookFinder().findShort(start->book).empty();
            ++verses;
        } else if (!line.starts_with('#')) {
            ++others;
        }
    }
    return namesBook && verses > 0 && verses >= others;
}

std::string nameOfDelimiter(std::string_view delimiter)
{
    if (delimiter == ",")
        return "CSV";
    if (delimiter == "\t")
        return tr("table with tabs");
    return message("table with \"%s\"", delimiter);
}

std::string roleOf(const PlainColumns& columns, std::size_t column)
{
    if (column == columns.book)
        return tr("book");
    if (column == columns.chapter)
        return tr("chapter");
    if (column == columns.verse)
        return tr("verse");
    return column == columns.text ? tr("text") : message("%s (left out)", inQuotes(columns.names[column]));
}

std::string tableText(const PlainShape& shape)
{
    constexpr std::size_t shown = 12;
    std::vector<std::string> roles;
    for (std::size_t i = 0; i < shape.columns.names.size() && i < shown; ++i)
        roles.push_back(roleOf(shape.columns, i));
    if (shape.columns.names.size() > shown)
        roles.emplace_back("...");
    const std::string all = joined(roles, ", "), name = nameOfDelimiter(shape.delimiter);
    return shape.hasHeader ? message("%s with a header: %s", name, all)
                           : message("%s without a header: %s", name, all);
}

} // namespace

bool PlainShape::namesBooks() const
{
    return isTable() ? columns.book != PlainColumns::none : form == VerseForm::reference;
}

std::string PlainShape::text() const
{
    if (isTable())
        return tableText(*this);
    switch (form) {
    case VerseForm::reference:
        return tr("lines: book, chapter:verse, text");
    case VerseForm::chapterVerse:
        return tr("lines: chapter:verse, text, the book above them");
    case VerseForm::verse:
        return tr("lines: verse, text, the book and chapter above them");
    default:
        return tr("lines: #chapter:verse#text");
    }
}

std::optional<PlainShape> plainShapeOf(std::string_view utf8, bool hasBook)
{
    const std::vector<std::string_view> lines = firstLines(utf8);
    PlainShape shape;
    shape.form = VerseForm::hashed;
    if (std::any_of(lines.begin(), lines.end(),
                    [](std::string_view line) { return verseStart(line, VerseForm::hashed).has_value(); }))
        return shape;
    for (const std::string_view delimiter : delimiters)
        if (auto table = tableOf(utf8, delimiter, hasBook))
            return table;
    for (const VerseForm form : {VerseForm::reference, VerseForm::chapterVerse, VerseForm::verse})
        if (mostAre(lines, form, hasBook)) {
            shape.form = form;
            return shape;
        }
    return std::nullopt;
}

bool isTableHeader(std::string_view line)
{
    CPlainRecords records(line, "\t", maxColumns);
    return records.next() && headerOf(records, false);
}

std::string bookOfField(std::string_view field)
{
    field = trimmed(field);
    const std::string_view digits =
        field.ends_with('O') || field.ends_with('N') ? field.substr(0, field.size() - 1) : field;
    const auto number = plainNumber(digits);
    if (!number)
        return bookFinder().findShort(field);
    const bool isOld = *number <= oldTestament;
    const bool isPossible = digits.size() == field.size() || isOld == field.ends_with('O');
    return *number >= 1 && *number <= protestantBooksCount && isPossible ? osisOfProtestant(*number) : "";
}

} // namespace Kedrin::ModTool
