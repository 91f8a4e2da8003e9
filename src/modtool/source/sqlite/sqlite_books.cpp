#include "sqlite_books.h"

#include "book_finder.h"
#include "book_ids.h"
#include "errors.h"
#include "messages.h"
#include "verse_number.h"

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

/// Some editions call the books of Samuel 1 and 2 Kings, so these names are ambiguous.
bool isOfKings(std::string_view osis)
{
    return osis == "1Sam" || osis == "2Sam" || osis == "1Kgs" || osis == "2Kgs";
}

} // namespace

std::string CSqliteBooks::ofNumber(std::string_view text) const
{
    const auto number = parseVerseNumber(text);
    if (!number || number->first == 0 || number->first != number->last || number->isPart)
        return "";
    if (!m_isSpaced)
        return number->first <= protestantBooksCount ? osisOfProtestant(number->first) : "";
    for (const SpacedBook& book : spacedBooks)
        if (book.number == number->first)
            return std::string(book.osis);
    return "";
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
    if (!byNumber.empty() && !byName.empty() && byNumber != byName &&
        !(isOfKings(byNumber) && isOfKings(byName)))
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
