#pragma once

#include "formats/marked_text.h"

#include <string>
#include <vector>

namespace build_test {

/// Verse lines of an installed SWORD Bible in Cyrillic: a letter for each Latin one, without any other signs than
/// blanks and punctuation. Its numbers of verses and of equal words are those of that Bible.
/// @param books  OSIS names; all where empty
std::string cyrillicLines(const std::string& installed, const std::vector<std::string>& books = {});

/// A line for each verse of the numbering that the SWORD library calls Synodal; the texts differ in all verses.
std::string synodalLines();

/// Notes for every fiftieth of these lines, in the form of verse lines.
std::string notesFor(const std::string& lines);

} // namespace build_test
