#pragma once

#include <string>

/// The program's directory with two translations of the size of a complete Bible, created by the first call
/// and removed when the program ends. "a" is the module that all benchmarks share, "b" the same with other
/// punctuation at the ends of its verses, so that their pages differ.
const std::string& windowFolder();
