#pragma once

#include "tolvo_bible.h"

namespace test_support {

/// Functions that call every operation of a loaded translation, whatever its files contain, and check what is
/// true for every module. std::out_of_range is accepted, as every caller must expect it. Other exceptions
/// pass through, as does the std::logic_error of a failed check; where the contract says so, the program
/// ends.
///
/// Titles, counts, words and the mapping of references; then the operations of the window, where errors for
/// damaged files (std::ios_base::failure) are accepted too: chapters and searches.
void walkAnswers(const Kedrin::Tolvo::CBible& bible);
void walkChapters(const Kedrin::Tolvo::CBible& bible);
void walkSearches(const Kedrin::Tolvo::CBible& bible);

/// Separate functions, because each may end the program: verse by verse; the substring searches; the search
/// for each word.
void walkVerses(const Kedrin::Tolvo::CBible& bible);
void walkScans(const Kedrin::Tolvo::CBible& bible);
void walkWords(const Kedrin::Tolvo::CBible& bible);

/// Whether `line` is a last line that the program may write if the text or concordance files of a translation
/// are damaged.
bool isPromisedEnd(const std::string& line);

} // namespace test_support
