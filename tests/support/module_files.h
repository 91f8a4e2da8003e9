#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace test_support {

/// UTF-8 as Windows-1251, '?' for what it lacks.
std::string cp1251(std::string_view utf8);

/// The ten files of a module as bytes, so that a test can spoil one and see what comes of it.
struct ModuleFiles
{
    std::map<std::string, std::string> bytes; ///< file name to content; a name that is absent is not written

    /// Writes all files into the folder, which is made if need be.
    void write(const std::filesystem::path& folder) const;
};

/// The smallest module worth reading, every byte written by hand: Битие with chapters of 2 and 1 verses and Изход
/// with one of 1, global numbers 0 and 1; the words "Бог", "земя" and "рече".
ModuleFiles smallModule();

/// One book of a made module. Texts are UTF-8 here.
struct Book
{
    unsigned int globalID;
    std::string title; ///< full and short title; the abbreviation is its first three letters
    std::vector<std::vector<std::string>> chapters;
};

/// A module put together the plain way from texts: words are runs of letters and digits, folded and sorted as the
/// engine compares them, the concordance complete. It shares no code with the module tool.
ModuleFiles makeModule(const std::string& title, const std::vector<Book>& books,
                       const std::string& diff = {});

/// A book of `verseCounts.size()` chapters whose verses read "<title> <chapter>:<verse>".
Book plainBook(unsigned int globalID, const std::string& title, const std::vector<unsigned int>& verseCounts);

} // namespace test_support
