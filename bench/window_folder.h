#pragma once

#include <string>

/// The program's directory with two translations of the size of a whole Bible in it, made at the first call; it goes
/// when the program ends. "a" is the module that all benchmarks share, "b" the same with other signs at the ends of
/// its verses, so that no page of one is a page of the other.
const std::string& windowFolder();
