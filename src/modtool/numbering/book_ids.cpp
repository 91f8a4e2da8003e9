#include "book_ids.h"

#include "ascii.h"
#include "book_names.h"
#include "global_books.h"

#include <unicode/uchar.h>
#include <unicode/utf8.h>

#include <algorithm>
#include <array>
#include <numeric>

namespace Kedrin::ModTool {

namespace {

struct UsfmBook
{
    std::string_view code;
    std::string_view osis;
};

// The first 66 in Protestant order: the number in the table, from 1, is Zefania's too.
// clang-format off
constexpr UsfmBook usfmBooks[] = {
    {"GEN", "Gen"}, {"EXO", "Exod"}, {"LEV", "Lev"}, {"NUM", "Num"}, {"DEU", "Deut"}, {"JOS", "Josh"},
    {"JDG", "Judg"}, {"RUT", "Ruth"}, {"1SA", "1Sam"}, {"2SA", "2Sam"}, {"1KI", "1Kgs"}, {"2KI", "2Kgs"},
    {"1CH", "1Chr"}, {"2CH", "2Chr"}, {"EZR", "Ezra"}, {"NEH", "Neh"}, {"EST", "Esth"}, {"JOB", "Job"},
    {"PSA", "Ps"}, {"PRO", "Prov"}, {"ECC", "Eccl"}, {"SNG", "Song"}, {"ISA", "Isa"}, {"JER", "Jer"},
    {"LAM", "Lam"}, {"EZK", "Ezek"}, {"DAN", "Dan"}, {"HOS", "Hos"}, {"JOL", "Joel"}, {"AMO", "Amos"},
    {"OBA", "Obad"}, {"JON", "Jonah"}, {"MIC", "Mic"}, {"NAM", "Nah"}, {"HAB", "Hab"}, {"ZEP", "Zeph"},
    {"HAG", "Hag"}, {"ZEC", "Zech"}, {"MAL", "Mal"},
    {"MAT", "Matt"}, {"MRK", "Mark"}, {"LUK", "Luke"}, {"JHN", "John"}, {"ACT", "Acts"}, {"ROM", "Rom"},
    {"1CO", "1Cor"}, {"2CO", "2Cor"}, {"GAL", "Gal"}, {"EPH", "Eph"}, {"PHP", "Phil"}, {"COL", "Col"},
    {"1TH", "1Thess"}, {"2TH", "2Thess"}, {"1TI", "1Tim"}, {"2TI", "2Tim"}, {"TIT", "Titus"},
    {"PHM", "Phlm"}, {"HEB", "Heb"}, {"JAS", "Jas"}, {"1PE", "1Pet"}, {"2PE", "2Pet"}, {"1JN", "1John"},
    {"2JN", "2John"}, {"3JN", "3John"}, {"JUD", "Jude"}, {"REV", "Rev"},
    {"TOB", "Tob"}, {"JDT", "Jdt"}, {"ESG", "EsthGr"}, {"WIS", "Wis"}, {"SIR", "Sir"}, {"BAR", "Bar"},
    {"LJE", "EpJer"}, {"S3Y", "PrAzar"}, {"SUS", "Sus"}, {"BEL", "Bel"}, {"1MA", "1Macc"}, {"2MA", "2Macc"},
    {"3MA", "3Macc"}, {"4MA", "4Macc"}, {"1ES", "1Esd"}, {"2ES", "2Esd"}, {"MAN", "PrMan"}, {"PS2", "AddPs"},
    {"ODA", "Odes"}, {"PSS", "PssSol"}, {"EZA", "4Ezra"}, {"5EZ", "5Ezra"}, {"6EZ", "6Ezra"}, {"DAG", "DanGr"},
    {"2BA", "2Bar"}, {"LBA", "EpBar"}, {"JUB", "Jub"}, {"ENO", "1En"}, {"LAO", "EpLao"},
};
static_assert(std::size(usfmBooks) > protestantBooksCount);

// Zefania's numbers from 67 on.
constexpr std::string_view zefaniaBooks[] = {
    "Jdt", "Wis", "Tob", "Sir", "Bar", "1Macc", "2Macc", "AddDan", "AddEsth", "PrMan", "3Macc", "4Macc",
    "EpJer", "1Esd", "2Esd", "Odes", "PssSol", "EpLao", "1En", "Jub",
};

// The Old Testament of the Orthodox Bible, by global numbers; the New Testament follows the global numbers.
constexpr std::uint8_t orthodoxOldTestament[] = {
    0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 39 /* 1Esd */, 40 /* Tob */, 41 /* Jdt */, 16, 17, 18,
    19, 20, 21, 42 /* Wis */, 43 /* Sir */, 22, 23, 24, 44 /* EpJer */, 45 /* Bar */, 25, 26, 27, 28, 29, 30, 31,
    32, 33, 34, 35, 36, 37, 38, 46 /* 1Macc */, 47, 48, 49 /* 2Esd */,
};
// clang-format on

constexpr unsigned int generalLetters = 55; ///< global number of James
constexpr unsigned int paulsLetters = 62;   ///< of Romans
constexpr unsigned int revelation = 76;

unsigned int rankInOrder(const std::string& osis, BookOrder order)
{
    const auto global = globalIDOf(osis);
    if (!global)
        return globalBooksCount;
    if (order == BookOrder::protestant) {
        if (*global >= paulsLetters && *global < revelation)
            return *global - (paulsLetters - generalLetters);
        if (*global >= generalLetters && *global < paulsLetters)
            return *global + (revelation - paulsLetters);
        return *global;
    }
    const auto* found = std::find(std::begin(orthodoxOldTestament), std::end(orthodoxOldTestament), *global);
    return found == std::end(orthodoxOldTestament)
               ? *global
               : static_cast<unsigned int>(found - std::begin(orthodoxOldTestament));
}

bool startsWithLetter(std::string_view utf8)
{
    std::int32_t i = 0;
    UChar32 codePoint = -1;
    if (!utf8.empty())
        U8_NEXT(reinterpret_cast<const std::uint8_t*>(utf8.data()), i, static_cast<std::int32_t>(utf8.size()),
                codePoint);
    return codePoint >= 0 && u_isalpha(codePoint);
}

bool isOfKings(std::string_view osis)
{
    return osis == "1Sam" || osis == "2Sam" || osis == "1Kgs" || osis == "2Kgs";
}

bool isOfEsdras(std::string_view osis) { return osis == "1Esd" || osis == "2Esd"; }

bool isCodeByte(char c) { return (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9'); }

} // namespace

std::string osisOfUsfm(std::string_view code)
{
    constexpr std::string_view byteOrderMark = "\uFEFF";
    if (code.starts_with(byteOrderMark))
        code.remove_prefix(byteOrderMark.size());
    std::string wanted = upper(code.substr(0, 4));
    const auto end = std::find_if_not(wanted.begin(), wanted.end(), isCodeByte);
    if (end - wanted.begin() != 3 || startsWithLetter(code.substr(3)))
        return "";
    wanted.resize(3);
    for (const UsfmBook& book : usfmBooks)
        if (book.code == wanted)
            return std::string(book.osis);
    return wanted;
}

std::string osisOfUsfmLine(std::string_view code, std::string_view rest)
{
    std::string osis = osisOfUsfm(code);
    const bool isUnknown = std::all_of(osis.begin(), osis.end(), isCodeByte); // such as FRT, or none
    if (!isUnknown)
        return osis;
    const std::string line = std::string(code) + ' ' + std::string(rest);
    for (const std::string& named : {osisOfName(code), osis, osisOfName(line)})
        if (!named.empty())
            return named;
    return "";
}

std::string osisOfZefania(unsigned int number)
{
    if (number > protestantBooksCount && number - protestantBooksCount <= std::size(zefaniaBooks))
        return std::string(zefaniaBooks[number - protestantBooksCount - 1]);
    return osisOfProtestant(number);
}

std::string osisOfProtestant(unsigned int number)
{
    if (number >= 1 && number <= protestantBooksCount)
        return std::string(usfmBooks[number - 1].osis);
    return "Book" + std::to_string(number);
}

std::string osisOfBook(std::string_view utf8)
{
    std::string named = osisOfShortName(utf8);
    if (!named.empty())
        return named;
    const std::string wanted = nameKey(utf8);
    for (const UsfmBook& book : usfmBooks)
        if (nameKey(book.osis) == wanted || nameKey(book.code) == wanted)
            return std::string(book.osis);
    return "";
}

bool contradict(std::string_view byNumber, std::string_view byName)
{
    if (byNumber.empty() || byName.empty() || byNumber == byName)
        return false;
    const bool mayBeEsdras = byNumber == "Ezra" || byNumber == "Neh";
    return !(isOfKings(byNumber) && isOfKings(byName)) && !(mayBeEsdras && isOfEsdras(byName));
}

std::vector<std::pair<std::string_view, std::string_view>> knownBookCodes()
{
    std::vector<std::pair<std::string_view, std::string_view>> books;
    for (const UsfmBook& book : usfmBooks)
        books.emplace_back(book.code, book.osis);
    for (const std::string_view osis : zefaniaBooks)
        books.emplace_back("", osis);
    return books;
}

void orderBooks(SourceBible& bible, BookOrder order)
{
    if (order == BookOrder::source)
        return;
    std::vector<std::uint32_t> oldIndices(bible.books.size());
    std::iota(oldIndices.begin(), oldIndices.end(), 0u);
    std::stable_sort(oldIndices.begin(), oldIndices.end(), [&](std::uint32_t a, std::uint32_t b) {
        return rankInOrder(bible.books[a], order) < rankInOrder(bible.books[b], order);
    });
    std::vector<std::uint32_t> newIndices(bible.books.size());
    std::vector<std::string> books;
    std::vector<BookTitles> titles;
    for (std::uint32_t i = 0; i < oldIndices.size(); ++i) {
        newIndices[oldIndices[i]] = i;
        books.push_back(bible.books[oldIndices[i]]);
        if (!bible.bookTitles.empty())
            titles.push_back(bible.bookTitles[oldIndices[i]]);
    }
    bible.books = std::move(books);
    bible.bookTitles = std::move(titles);
    for (SourceVerse& verse : bible.verses)
        verse.book = newIndices[verse.book];
    std::stable_sort(bible.verses.begin(), bible.verses.end(),
                     [](const SourceVerse& a, const SourceVerse& b) { return a.book < b.book; });
}

bool isKnownOsisId(std::string_view osis)
{
    return globalIDOf(osis) ||
           std::any_of(std::begin(usfmBooks), std::end(usfmBooks),
                       [&](const UsfmBook& book) { return book.osis == osis; }) ||
           std::find(std::begin(zefaniaBooks), std::end(zefaniaBooks), osis) != std::end(zefaniaBooks);
}

bool isUsfmSideMatter(std::string_view code)
{
    constexpr std::string_view codes[] = {"FRT", "INT", "BAK", "CNC", "GLO", "TDX", "NDX", "OTH"};
    const bool isExtra = code.size() == 3 && code.starts_with("XX") && code[2] >= 'A' && code[2] <= 'G';
    return isExtra || std::find(std::begin(codes), std::end(codes), code) != std::end(codes);
}

} // namespace Kedrin::ModTool
