#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <vector>

/// Reads the texts of the programs from their sources, and those that the guide quotes from its pages.
namespace guide {

/// The contents of a file.
std::string contentOf(const std::filesystem::path& file);

/// The pages of a language: their Markdown by their names, such as "search.md".
std::map<std::string, std::string> pagesOf(const std::string& language);

/// The string literals of C++ or of a catalogue, adjacent ones joined, each as shown().
std::vector<std::string> literalsIn(const std::string& source);

/// English texts with their Bulgarian, both as shown().
std::map<std::string, std::string> catalogue();

/// As a window shows a text: without the marks of mnemonics, character references and line ends, with … for what
/// is filled in.
std::string shown(std::string text);

/// The texts in bold.
std::vector<std::string> boldIn(const std::string& page);

/// The text without marks of bold type, runs of white space being a blank.
std::string plain(const std::string& page);

} // namespace guide
