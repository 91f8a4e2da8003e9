#include "json_books.h"

#include "ascii.h"
#include "book_finder.h"
#include "book_ids.h"
#include "errors.h"
#include "json_references.h"
#include "letters.h"
#include "messages.h"

#include <algorithm>
#include <filesystem>

namespace Kedrin::ModTool {

namespace {

constexpr unsigned int protestantBooks = 66;

bool isDigits(std::string_view text)
{
    return !text.empty() && std::all_of(text.begin(), text.end(), isAsciiDigit);
}

/// Adds a value to the names or codes; digits are the number.
void take(const JsonValue* value, BookClues& clues, std::vector<std::string_view>& texts)
{
    if (!value || !value->isScalar() || isBlank(value->text))
        return;
    if (const std::string_view text = wholeNumber(value->text); !isDigits(text))
        texts.push_back(text);
    else if (clues.number.empty())
        clues.number = text;
}

/// The OSIS id of a number from 1 to 66, otherwise "".
std::string bookOfNumber(std::string_view digits)
{
    const unsigned int number = parseJsonNumber(digits).value_or(0);
    return number >= 1 && number <= protestantBooks ? osisOfZefania(number) : "";
}

std::string firstKnown(const std::vector<std::string_view>& names)
{
    for (const std::string_view name : names)
        if (std::string osis = bookFinder().find(name); !osis.empty())
            return osis;
    return "";
}

bool isNamedBy(std::string_view name, const BookClues& clues)
{
    return std::find(clues.names.begin(), clues.names.end(), name) != clues.names.end() ||
           std::find(clues.codes.begin(), clues.codes.end(), name) != clues.codes.end();
}

/// The name of a book that nobody knows.
std::string unknownBook(const CJsonDocument& document, BookClues& clues)
{
    const std::string_view name = !clues.names.empty()   ? clues.names.front()
                                  : !clues.codes.empty() ? clues.codes.front()
                                                         : clues.number;
    clues.unknown =
        atLine(document.fileName(), clues.line,
               message("%s is not a known book: write its number from 1 to 66, its English name or its "
                       "OSIS id, such as Gen",
                       inQuotes(name)));
    return std::string(name);
}

} // namespace

BookClues cluesOfBook(const CJsonDocument& document, const JsonValue& object)
{
    BookClues clues;
    clues.line = object.line;
    for (const Field field : {Field::bookNumber, Field::number})
        take(document.find(object, field), clues, clues.codes);
    for (const Field field : {Field::name, Field::bookName, Field::title, Field::book})
        take(document.find(object, field), clues, clues.names);
    for (const Field field : {Field::bookCode, Field::shortName, Field::id})
        take(document.find(object, field), clues, clues.codes);
    return clues;
}

BookClues cluesOfPart(const CJsonDocument& document, const JsonValue& object)
{
    BookClues clues;
    clues.line = object.line;
    take(document.find(object, Field::bookNumber), clues, clues.codes);
    take(document.find(object, Field::bookName), clues, clues.names);
    take(document.find(object, Field::book), clues, clues.names);
    take(document.find(object, Field::bookCode), clues, clues.codes);
    return clues;
}

bool isSaidBy(const BookClues& clues, const BookClues& other)
{
    const auto isNamed = [&](std::string_view name) { return isNamedBy(name, other); };
    return (clues.number.empty() || clues.number == other.number) &&
           std::all_of(clues.names.begin(), clues.names.end(), isNamed) &&
           std::all_of(clues.codes.begin(), clues.codes.end(), isNamed);
}

bool haveClueInCommon(const BookClues& clues, const BookClues& other)
{
    const auto isNamed = [&](std::string_view name) { return isNamedBy(name, other); };
    return (!clues.number.empty() && clues.number == other.number) ||
           std::any_of(clues.names.begin(), clues.names.end(), isNamed) ||
           std::any_of(clues.codes.begin(), clues.codes.end(), isNamed);
}

std::string bookOf(const CJsonDocument& document, BookClues& clues)
{
    const std::string byName = firstKnown(clues.names);
    std::string byNumber = bookOfNumber(clues.number);
    if (contradict(byNumber, byName))
        failAtLine(document.fileName(), clues.line,
                   message("the book is %s by its number, but %s by its name: correct one of them", byNumber,
                           byName));
    if (!byNumber.empty())
        return byNumber;
    std::string byPosition = clues.position == 0 ? "" : osisOfZefania(clues.position);
    if (!byPosition.empty() && !contradict(byPosition, byName)) {
        clues.isByPosition = byName.empty() && firstKnown(clues.codes) != byPosition;
        return byPosition;
    }
    if (!byName.empty() || !clues.file.empty())
        return byName.empty() ? clues.file : byName;
    if (std::string osis = firstKnown(clues.codes); !osis.empty())
        return osis;
    for (const auto* texts : {&clues.names, &clues.codes})
        for (const std::string_view name : *texts)
            if (std::string osis = bookFinder().findShort(name); !osis.empty())
                return osis;
    if (!clues.names.empty() || !clues.codes.empty() || !clues.number.empty())
        return unknownBook(document, clues);
    return "";
}

std::string bookOfFile(const std::string& fileName)
{
    const std::string stem = std::filesystem::path(fileName).stem().string();
    if (std::string osis = bookFinder().find(stem); !osis.empty())
        return osis;
    const std::size_t digits = std::min(stem.find_first_not_of("0123456789"), stem.size());
    const std::string_view rest = trimmed(std::string_view(stem).substr(digits), " _-.");
    if (!rest.empty())
        return digits == 0 ? "" : bookFinder().find(rest);
    return bookOfNumber(std::string_view(stem).substr(0, digits));
}

bool isProtestantList(const CJsonDocument& document, const JsonValue& list)
{
    unsigned int position = 0, same = 0, others = 0;
    for (const JsonValue& book : document.childrenOf(list)) {
        if (++position > protestantBooks)
            return false;
        const BookClues clues = cluesOfBook(document, book);
        const std::string known = firstKnown(clues.names.empty() ? clues.codes : clues.names);
        if (!known.empty())
            ++(known == osisOfZefania(position) ? same : others);
    }
    return position == protestantBooks && same >= others;
}

} // namespace Kedrin::ModTool
