#pragma once

#include "module_files.h"
#include "temp_folder.h"

#include <string>
#include <vector>

namespace query_test {

/// What a run of the program came to.
struct Result
{
    int code;
    std::string out;
    std::string err;

    bool operator==(const Result&) const = default;
};

void PrintTo(const Result& result, std::ostream* out);

/// Runs `kedrin-module` with these arguments, without the SWORD library's commands.
Result run(const std::vector<std::string>& arguments);

/// A folder with modules made by hand, and runs of the program over them.
class Modules
{
public:
    /// Writes a module and returns its path.
    std::string add(const std::string& name, const test_support::ModuleFiles& files) const;

    std::string path(const std::string& name) const { return m_folder.file(name); }

private:
    test_support::TempFolder m_folder;
};

/// "Пробен превод": Битие with chapters of 2 and 2 verses, Йона with chapters of 1 and 2, Юда with one of 3. Its Йона
/// counts the verses of chapter 2 one higher than the common numbering does.
test_support::ModuleFiles bulgarianModule();

/// "English": Genesis with chapters of 2 and 1 verses, Jonah with chapters of 2 and 2, counted as the common numbering
/// does.
test_support::ModuleFiles englishModule();

} // namespace query_test
