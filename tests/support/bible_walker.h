#pragma once

#include "tolvo_bible.h"

namespace test_support {

/// Asks a loaded translation for everything it offers, whatever its files hold, and checks what holds for every
/// module. std::out_of_range is taken for an answer, as every caller must expect it. A foreign exception or a
/// std::logic_error for a check that failed comes out; where a contract says so, the program ends.
///
/// Titles, counts, words and the mapping of references; then what the window asks for, where damaged files are
/// an answer too (std::ios_base::failure): chapters and searches.
void walkAnswers(const Kedrin::Tolvo::CBible& bible);
void walkChapters(const Kedrin::Tolvo::CBible& bible);
void walkSearches(const Kedrin::Tolvo::CBible& bible);

/// Three walks apart, because each may end the program: verse by verse; the substring searches; the search of each
/// word.
void walkVerses(const Kedrin::Tolvo::CBible& bible);
void walkScans(const Kedrin::Tolvo::CBible& bible);
void walkWords(const Kedrin::Tolvo::CBible& bible);

/// Whether `line` is what the program may say last when a translation's text or concordance files are damaged.
bool isPromisedEnd(const std::string& line);

} // namespace test_support
