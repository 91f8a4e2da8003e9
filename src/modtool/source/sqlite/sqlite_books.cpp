#include "sqlite_books.h"

#include "book_finder.h"
#include "book_ids.h"
#include "errors.h"
#include "messages.h"
#include "sqlite_columns.h"

namespace Kedrin::ModTool {

namespace {

struct SpacedBook
{
    unsigned int number;
    std::string_view osis;
};

// clang-format off
constexpr SpacedBook spacedBooks[] = {
    {10, "Gen"}, {20, "Exod"}, {30, "Lev"}, {40, "Num"}, {50, "Deut"}, {60, "Josh"}, {70, "Judg"}, {80, "Ruth"},
    {90, "1Sam"}, {100, "2Sam"}, {110, "1Kgs"}, {120, "2Kgs"}, {130, "1Chr"}, {140, "2Chr"}, {150, "Ezra"},
    {160, "Neh"}, {165, "1Esd"}, {170, "Tob"}, {180, "Jdt"}, {190, "Esth"}, {220, "Job"}, {230, "Ps"},
    {240, "Prov"}, {250, "Eccl"}, {260, "Song"}, {270, "Wis"}, {280, "Sir"}, {290, "Isa"}, {300, "Jer"},
    {310, "Lam"}, {315, "EpJer"}, {320, "Bar"}, {330, "Ezek"}, {340, "Dan"}, {350, "Hos"}, {360, "Joel"},
    {370, "Amos"}, {380, "Obad"}, {390, "Jonah"}, {400, "Mic"}, {410, "Nah"}, {420, "Hab"}, {430, "Zeph"},
    {440, "Hag"}, {450, "Zech"}, {460, "Mal"}, {462, "1Macc"}, {464, "2Macc"}, {466, "3Macc"}, {467, "4Macc"},
    {468, "2Esd"}, {470, "Matt"}, {480, "Mark"}, {490, "Luke"}, {500, "John"}, {510, "Acts"}, {520, "Rom"},
    {530, "1Cor"}, {540, "2Cor"}, {550, "Gal"}, {560, "Eph"}, {570, "Phil"}, {580, "Col"}, {590, "1Thess"},
    {600, "2Thess"}, {610, "1Tim"}, {620, "2Tim"}, {630, "Titus"}, {640, "Phlm"}, {650, "Heb"}, {660, "Jas"},
    {670, "1Pet"}, {680, "2Pet"}, {690, "1John"}, {700, "2John"}, {710, "3John"}, {720, "Jude"}, {730, "Rev"},
    {790, "PrMan"},
};
// clang-format on

/// "" for a number that no book has.
std::string ofSpacedNumber(unsigned int number)
{
    for (const SpacedBook& book : spacedBooks)
        if (book.number == number)
            return std::string(book.osis);
    return "";
}

std::string ofProtestantNumber(unsigned int number)
{
    return number >= 1 && number <= protestantBooksCount ? osisOfProtestant(number) : "";
}

/// How much speaks for each numbering.
struct Votes
{
    unsigned int spaced = 0;
    unsigned int protestant = 0;
    bool isAboveProtestant = false; ///< a number above 66

    void addNumber(unsigned int number)
    {
        spaced += !ofSpacedNumber(number).empty();
        protestant += !ofProtestantNumber(number).empty();
        isAboveProtestant = isAboveProtestant || number > protestantBooksCount;
    }

    void addName(unsigned int number, const std::string& osis)
    {
        const std::string ofSpaced = ofSpacedNumber(number), ofProtestant = ofProtestantNumber(number);
        spaced += !ofSpaced.empty() && !contradict(ofSpaced, osis);
        protestant += !ofProtestant.empty() && !contradict(ofProtestant, osis);
    }

    /// Whether books are numbered in tens; nothing for a tie.
    std::optional<bool> areForSpaced() const
    {
        return spaced != protestant ? std::optional(spaced > protestant)
               : isAboveProtestant  ? std::optional(true)
                                    : std::nullopt;
    }
};

/// Chapters of the books 10, 20, 30, 40, 50 and 60 of the order from 1 to 66. The books with these numbers in tens, Genesis
/// to Joshua, have more.
constexpr unsigned int protestantChapters[] = {24, 31, 9, 28, 4, 5};

/// Whether books from 10 to 60 are numbered in tens, by their chapters; nothing if these leave it open.
std::optional<bool> areChaptersOfSpaced(const CSqliteBooks::LastChapters& lastChapters)
{
    bool areWhole = true;
    for (const auto& [number, last] : lastChapters) {
        if (number == 0)
            continue;
        const unsigned int chapters = protestantChapters[number / 10 - 1];
        if (last > chapters)
            return true;
        areWhole = areWhole && last == chapters;
    }
    return areWhole ? std::optional(false) : std::nullopt;
}

/// Whether the numbers are 10 and 20, or go on from there without a gap.
bool areFirstInTens(const CSqliteBooks::LastChapters& lastChapters)
{
    unsigned int next = 10;
    for (const auto& [number, last] : lastChapters)
        next += number == next ? 10 : 0;
    return next > 20 && lastChapters.rbegin()->first == next - 10;
}

} // namespace

/// Whether books are numbered in tens, by the names in the table of books or, if these are unknown, by its numbers.
std::optional<bool> CSqliteBooks::areTitlesInTens() const
{
    Votes names, numbers;
    for (const auto& [text, book] : m_books) {
        const auto number = numberOf(text);
        if (!number)
            continue;
        numbers.addNumber(number->first);
        std::string osis = bookFinder().find(book.longName);
        if (osis.empty())
            osis = bookFinder().find(book.shortName);
        if (!osis.empty())
            names.addName(number->first, osis);
    }
    const auto byNames = names.areForSpaced();
    return byNames ? byNames : numbers.areForSpaced();
}

std::string CSqliteBooks::findNumbering(const LastChapters& lastChapters)
{
    Votes numbers;
    for (const auto& [number, last] : lastChapters)
        numbers.addNumber(number);
    std::optional<bool> isSpaced = numbers.areForSpaced();
    if (!isSpaced && numbers.spaced != 0)
        isSpaced = areTitlesInTens();
    if (isSpaced || numbers.spaced == 0) {
        m_isSpaced = isSpaced.value_or(false);
        return "";
    }
    isSpaced = areChaptersOfSpaced(lastChapters);
    if (!isSpaced && !areFirstInTens(lastChapters))
        throw CBuildError(
            message("%s: the numbers of books may be in tens (10 for Gen) or from 1 to 66 (10 for 2Sam): add "
                    "a table of books with their names",
                    m_fileName));
    m_isSpaced = isSpaced.value_or(true);
    return m_isSpaced ? tr("numbers of books in tens, 10 for Gen")
                      : tr("numbers of books from 1 to 66, 10 for 2Sam");
}

std::string CSqliteBooks::ofNumber(std::string_view text) const
{
    const auto number = parseVerseNumber(text);
    if (!number || number->first == 0 || number->first != number->last || number->isPart)
        return "";
    return m_isSpaced ? ofSpacedNumber(number->first) : ofProtestantNumber(number->first);
}

CSqliteBooks::Book CSqliteBooks::titlesOf(std::string_view number) const
{
    const auto found = m_books.find(number);
    return found == m_books.end() ? Book() : found->second;
}

std::string CSqliteBooks::osisOf(std::string_view number, std::size_t row) const
{
    const Book titles = titlesOf(number);
    std::string byName = bookFinder().find(titles.longName);
    for (const std::string_view name : {std::string_view(titles.shortName), number})
        byName = byName.empty() ? bookFinder().find(name) : byName;
    const std::string byNumber = ofNumber(number);
    if (contradict(byNumber, byName))
        failAtLine(m_fileName, row,
                   message("the book is %s by its number, but %s by its name: correct one of them", byNumber,
                           byName));
    return byNumber.empty() ? byName : byNumber;
}

std::string CSqliteBooks::nameOf(std::string_view number) const
{
    const std::string name = titlesOf(number).longName;
    return name.empty() ? std::string(number) : name;
}

} // namespace Kedrin::ModTool
