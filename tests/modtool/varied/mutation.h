#pragma once

#include "varied_text.h"

namespace varied_test {

/// Damages a file: bits, bytes and parts of it are changed, removed, repeated and moved, numbers become others, signs
/// and constructs with a meaning in some format come in.
/// @param others  files of which parts may come in; not empty
std::string mutated(std::string bytes, const std::vector<std::string>& others, CRandom& random);

/// Puts such signs and constructs into the verses and numbers of a text.
void mutate(Text& text, CRandom& random);

} // namespace varied_test
