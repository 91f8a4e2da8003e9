#pragma once

#include "source_bible.h"

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace Kedrin::ModTool {

/// The OSIS id of a USFM book code, in any case: "GEN" gives "Gen". A code without an OSIS id of a Bible's book
/// ("FRT", "XXA") gives itself, "" what does not begin with three letters and digits and go on with anything else
/// ("GEN,", "GEN-").
std::string osisOfUsfm(std::string_view code);

/// The OSIS id of the book that a line \id begins: by its code or, where that is none of the standard's, by a name.
/// @param code  the first word
/// @param rest  what follows it
/// @returns "" where neither is known
std::string osisOfUsfmLine(std::string_view code, std::string_view rest);

/// The OSIS id of a book number of Zefania XML: 1 to 66 in Protestant order, from 67 on the books beside them. A number
/// without a book gives "Book" and the number.
std::string osisOfZefania(unsigned int number);

/// Books that count from 1 in Protestant order, without those beside them.
inline constexpr unsigned int protestantBooksCount = 66;

/// The OSIS id of a book by its number in Protestant order. One without a book there gives "Book" and the number.
std::string osisOfProtestant(unsigned int number);

/// The OSIS id of a book by a name, which may be cut short (osisOfShortName()), by its OSIS id or by its USFM code; the
/// last two also of books that the global numbering lacks. "" for none.
std::string osisOfBook(std::string_view utf8);

/// The USFM code and the OSIS id of every book that this program knows; "" where a book has no code.
std::vector<std::pair<std::string_view, std::string_view>> knownBookCodes();

/// In which order the books of a module stand.
enum class BookOrder
{
    source,     ///< as they come in the source
    protestant, ///< the deuterocanonical books between the testaments, Paul's letters before the general ones
    orthodox    ///< the deuterocanonical books among the others, the general letters before Paul's
};

/// Puts the books into an order; those that the common numbering lacks come last, as they came.
void orderBooks(SourceBible& bible, BookOrder order);

} // namespace Kedrin::ModTool
