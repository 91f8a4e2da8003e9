#pragma once

#include "source_bible.h"

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace Kedrin::ModTool {

/// The OSIS id of a USFM book code, in any case: "GEN" gives "Gen". A code that is not of a Bible book
/// ("FRT", "XXA") is returned as it is. Only three letters or digits not followed by a letter are a code
/// ("GEN,", "GEN-"); anything else gives "".
std::string osisOfUsfm(std::string_view code);

/// The OSIS id of the book that an \id line begins: by its code or, if that is not a standard one, by a name.
/// @param code  the first word
/// @param rest  what follows it
/// @returns "" if neither is known
std::string osisOfUsfmLine(std::string_view code, std::string_view rest);

/// The OSIS id of a book number of Zefania XML: 1 to 66 in Protestant order, the other books from 67 on. An
/// unassigned number gives "Book" and the number.
std::string osisOfZefania(unsigned int number);

/// Books that count from 1 in Protestant order, without those beside them.
inline constexpr unsigned int protestantBooksCount = 66;

/// The OSIS id of a book by its number in Protestant order. One without a book there gives "Book" and the number.
std::string osisOfProtestant(unsigned int number);

/// The OSIS id of a book by a name, which may be cut short (osisOfShortName()), by its OSIS id or by its USFM code; the
/// last two also of books that the global numbering lacks. "" for none.
std::string osisOfBook(std::string_view utf8);

/// Whether the number and the name of a book are of different ones, by their OSIS ids; "" contradicts none. Some editions call
/// the books of Samuel 1 and 2 Kings, or Ezra and Nehemiah 1 and 2 Esdras, so these names contradict no number of theirs.
bool contradict(std::string_view byNumber, std::string_view byName);

/// The USFM code and the OSIS id of every book that this program knows; "" where a book has no code.
std::vector<std::pair<std::string_view, std::string_view>> knownBookCodes();

/// Order of the books in a module.
enum class BookOrder
{
    source,     ///< as in the source
    protestant, ///< the deuterocanonical books between the testaments, Paul's letters before the general ones
    orthodox    ///< the deuterocanonical books among the others, the general letters before Paul's
};

/// Sorts the books; those that the global numbering lacks come last, in source order.
void orderBooks(SourceBible& bible, BookOrder order);

/// Whether an OSIS id is of a book of the global numbering or of one that is known beside it.
bool isKnownOsisId(std::string_view osis);

/// Whether a USFM code that has no OSIS id is known: front matter, glossary and the like, XXA to XXG.
bool isUsfmSideMatter(std::string_view code);

} // namespace Kedrin::ModTool
