#include "check_books.h"

#include "ascii.h"
#include "check_file.h"
#include "global_books.h"
#include "messages.h"
#include "module_data.h"
#include "module_format.h"
#include "text_reader.h"

#include <array>
#include <set>

namespace Kedrin::ModTool {

std::string CheckedShape::bookName(std::size_t book) const
{
    const std::uint32_t globalID = books[book].globalID;
    return globalID < globalBooksCount ? std::string(globalBooks()[globalID].osis)
                                       : message("book %s", book + 1);
}

std::string CheckedShape::positionOf(std::uint32_t verseNum) const
{
    const auto found = hasStructure ? findVerse(books, verseNum) : std::nullopt;
    if (found)
        return positionText(bookName(found->first), found->second.chapter + 1u, found->second.verse + 1u);
    return message("verse %s", verseNum + 1);
}

namespace {

constexpr std::array titleKinds = {translatable("full title"), translatable("short title"),
                                   translatable("abbreviation")};

/// The books with their global numbers; `rest` is left after the line with the last number.
std::vector<CheckedBook> readBookNumbers(std::string_view& rest, CFindings& findings)
{
    ut::CNumberReader numbers(rest);
    const auto booksCount = numbers.nextUnsigned();
    if (!booksCount || *booksCount == 0 || *booksCount > globalBooksCount) {
        findings.add(!booksCount        ? CheckID::titlesMalformed
                     : *booksCount == 0 ? CheckID::booksNone
                                        : CheckID::booksTooMany,
                     titlesFileName + (booksCount ? ": " + std::to_string(*booksCount) : ""));
        return {};
    }
    std::vector<CheckedBook> books(*booksCount);
    for (CheckedBook& book : books) {
        const auto globalID = numbers.nextSigned();
        if (!globalID) {
            findings.add(CheckID::titlesMalformed, titlesFileName);
            return {};
        }
        book.globalID = static_cast<std::uint32_t>(*globalID);
    }
    rest = numbers.rest();
    takeLine(rest);
    return books;
}

void checkBookNumbers(const CheckedShape& shape, CFindings& findings)
{
    std::set<std::uint32_t> met;
    for (std::size_t book = 0; book < shape.books.size(); ++book) {
        const std::uint32_t globalID = shape.books[book].globalID;
        const auto position = [&] {
            return shape.bookName(book) + ": " + std::to_string(static_cast<std::int32_t>(globalID));
        };
        if (globalID >= globalBooksCount)
            findings.addLazily(CheckID::bookNumberUnknown, position);
        if (!met.insert(globalID).second)
            findings.addLazily(CheckID::bookNumberRepeated, position);
    }
}

/// The titles of one kind, one line per book.
/// @param kind  English, for tr()
void checkTitles(const char* kind, std::string_view& rest, const CheckedShape& shape, CFindings& findings)
{
    std::set<std::string_view> met;
    for (std::size_t book = 0; book < shape.books.size(); ++book) {
        std::string_view line = takeLine(rest);
        const std::string_view title = lineText(line);
        if (line.ends_with('\r'))
            line.remove_suffix(1);
        const auto position = [&] {
            return shape.bookName(book) + ", " + tr(kind) + (title.empty() ? "" : ": " + shownBytes(line));
        };
        if (title.empty())
            findings.addLazily(CheckID::titlesEmpty, position);
        else if (!met.insert(title).second)
            findings.addLazily(CheckID::titlesRepeated, position);
        if (line.size() > maxLineBytes)
            findings.addLazily(CheckID::titlesLong, position);
        if (hasBadByte(line))
            findings.addLazily(CheckID::titlesBytes, position);
    }
}

void readTitles(const std::string& folder, CheckedShape& shape, CFindings& findings)
{
    const std::optional<std::string> content = readForCheck(folder, titlesFileName, findings);
    if (!content)
        return;
    std::string_view rest = *content;
    shape.books = readBookNumbers(rest, findings);
    if (shape.books.empty())
        return;
    checkBookNumbers(shape, findings);
    for (const char* kind : titleKinds)
        checkTitles(kind, rest, shape, findings);
    if (!isBlank(rest))
        findings.add(CheckID::titlesSurplus, shownBytes(lineText(takeLine(rest))));
}

/// Reads the chapters of a book; false if the file does not contain them or the module is too large.
bool readChapters(ut::CNumberReader& numbers, CheckedShape& shape, std::size_t book, CFindings& findings)
{
    const auto chaptersCount = numbers.nextUnsigned();
    if (!chaptersCount || *chaptersCount > numbers.rest().size())
        return false;
    if (*chaptersCount == 0)
        findings.add(CheckID::structureEmptyBook, shape.bookName(book));
    for (std::uint32_t chapter = 0; chapter < *chaptersCount; ++chapter) {
        const auto versesCount = numbers.nextUnsigned();
        if (!versesCount)
            return false;
        if (*versesCount == 0)
            findings.addLazily(CheckID::structureEmptyChapter,
                               [&] { return shape.bookName(book) + ' ' + std::to_string(chapter + 1); });
        shape.totalVerses += *versesCount;
        if (chapter < maxNumberedVerses) // further chapters are over the limit or empty, and reported
            shape.books[book].versesCount.push_back(*versesCount);
    }
    return true;
}

void readStructure(const std::string& folder, CheckedShape& shape, CFindings& findings)
{
    const std::optional<std::string> content = readForCheck(folder, structureFileName, findings);
    if (!content || shape.books.empty())
        return;
    ut::CNumberReader numbers(*content);
    for (std::size_t book = 0; book < shape.books.size(); ++book)
        if (!readChapters(numbers, shape, book, findings)) {
            findings.add(CheckID::structureMalformed, shape.bookName(book));
            return;
        }
    shape.hasStructure = true;
    if (shape.totalVerses > maxNumberedVerses)
        findings.add(CheckID::structureTooManyVerses, std::to_string(shape.totalVerses));
    std::string_view surplus = trimmedStart(numbers.rest(), " \t\n\v\f\r");
    if (!surplus.empty())
        findings.add(CheckID::structureSurplus, shownBytes(takeLine(surplus)));
}

} // namespace

CheckedShape checkBooks(const std::string& folder, CFindings& findings)
{
    CheckedShape shape;
    readTitles(folder, shape, findings);
    readStructure(folder, shape, findings);
    return shape;
}

void checkInfo(const std::string& folder, CFindings& findings)
{
    const std::optional<std::string> content =
        readForCheck(folder, infoFileName, findings, CheckID::infoMissing);
    if (!content)
        return;
    std::string_view rest = *content;
    bool hasCopyright = false;
    for (std::uint64_t lineNum = 0; lineNum < titleKinds.size() || !rest.empty(); ++lineNum) {
        std::string_view line = takeLine(rest);
        const auto position = [&] { return std::string(infoFileName) + ":" + std::to_string(lineNum + 1); };
        const bool isTitle = lineNum < titleKinds.size();
        if (isTitle && lineText(line).empty())
            findings.addLazily(CheckID::infoTitle, position);
        hasCopyright |= !isTitle && !lineText(line).empty();
        if (line.size() > maxLineBytes)
            findings.addLazily(CheckID::infoLongLine, position);
        if (line.ends_with('\r'))
            line.remove_suffix(1);
        if (hasBadByte(line))
            findings.addLazily(CheckID::infoBytes, position);
    }
    if (!hasCopyright)
        findings.add(CheckID::infoCopyright, infoFileName);
}

} // namespace Kedrin::ModTool
