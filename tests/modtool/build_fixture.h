#pragma once

#include "temp_folder.h"
#include "tolvo_bible.h"

#include <gtest/gtest.h>

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace build_test {

/// What a run of the program came to.
struct Result
{
    int code;
    std::string out;
    std::string err;

    bool operator==(const Result&) const = default;
};

void PrintTo(const Result& result, std::ostream* out);

/// Runs `kedrin-module` with these arguments.
/// @param terminal  where the progress bar goes; null: nowhere
Result run(const std::vector<std::string>& arguments, std::ostream* terminal = nullptr);

std::string bytesOf(const std::string& fileName);

/// The names in a folder, hidden ones too, sorted.
std::vector<std::string> namesIn(const std::string& folder);

/// The content of every file of a folder by its name.
std::map<std::string, std::string> filesOf(const std::string& folder);

/// A text file of verse lines in a folder of the test's own, and the module that is built of it in `modules/made`.
class Building : public testing::Test
{
protected:
    /// `kedrin-module build <file with this text> <modules/made> <options>`
    Result build(std::string_view verseLines, const std::vector<std::string>& options = {}) const;

    /// What build() has to say on standard error about a text that is refused.
    std::string refusal(std::string_view verseLines, const std::vector<std::string>& options = {}) const;

    /// The line of the report that begins with these words, without the words and its end; "" for none.
    static std::string reported(const Result& result, const std::string& label);

    std::string sourceName() const { return m_folder.file("Made.vpl"); }
    std::string modules() const { return m_folder.file("modules"); }
    std::string made() const { return m_folder.file("modules/made"); }
    std::string made(const std::string& name) const { return bytesOf(made() + '/' + name); }

    /// A verse of the built module, in UTF-8. Numbers from 0, the book's local one.
    std::string verse(unsigned int book, unsigned int chapter, unsigned int verse) const;

    /// The lines of the built module's word list, in UTF-8.
    std::vector<std::string> words() const;

    const test_support::TempFolder m_folder;
};

} // namespace build_test
