#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace test_support {

/// UTF-8 as Windows-1251, '?' for characters that it lacks.
std::string cp1251(std::string_view utf8);

/// The ten files of a module as bytes, so that a test can corrupt one of them.
struct ModuleFiles
{
    std::map<std::string, std::string> bytes; ///< file name to content; missing names are not written

    /// Writes all files into the folder, which is created if necessary.
    void write(const std::filesystem::path& folder) const;
};

/// A minimal module, every byte written by hand: Битие with chapters of 2 and 1 verses and Изход with one of
/// 1, global numbers 0 and 1; the words "Бог", "земя" and "рече".
ModuleFiles smallModule();

/// One book of a generated module. Texts are UTF-8.
struct Book
{
    unsigned int globalID;
    std::string title; ///< full and short title; the abbreviation is its first three letters
    std::vector<std::vector<std::string>> chapters;
};

/// A module generated from texts in a simple way: words are sequences of letters and digits, folded and
/// sorted in the engine's order, with a complete concordance. It shares no code with the module tool.
ModuleFiles makeModule(const std::string& title, const std::vector<Book>& books,
                       const std::string& diff = {});

/// A book of `verseCounts.size()` chapters whose verses are "<title> <chapter>:<verse>".
Book plainBook(unsigned int globalID, const std::string& title, const std::vector<unsigned int>& verseCounts);

} // namespace test_support
