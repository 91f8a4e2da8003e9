#pragma once

#include <string>

namespace varied_test {

/// Writes random texts in every format and reads them again.
/// @param first  the seed of the first text
/// @param keep   a folder for sources that were read otherwise; "": they are not kept
/// @returns how many texts some format does not give; each is reported on standard error
unsigned int countDisagreements(unsigned int texts, unsigned int first, const std::string& keep);

} // namespace varied_test
