// Compares the tables of files and folders in doc/architecture.md and doc/module-tool.md with the sources.

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <regex>
#include <set>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;

const fs::path project = KEDRIN_PROJECT_FOLDER;

/// A row of a table: | `folder` | `file`, `file` | contents | `folder`, `folder` |
struct Row
{
    std::string folder;
    /// A source and its header without extension: "bible"; other files with it: "bg.po".
    std::set<std::string> files;
    std::set<std::string> mayInclude;
};

std::vector<std::string> quotedIn(const std::string& cell)
{
    static const std::regex quoted("`([^`]+)`");
    std::vector<std::string> names;
    for (std::sregex_iterator name(cell.begin(), cell.end(), quoted), end; name != end; ++name)
        names.push_back((*name)[1]);
    return names;
}

/// @param name  relative to the project's folder or to `parent`
std::string fullName(const std::string& name, const std::string& parent)
{
    return name.starts_with("src") ? name : parent + name;
}

/// The rows of the table after the line <!-- layout -->.
/// @param parent  of the folders listed without it
std::vector<Row> rowsOf(const std::string& page, const std::string& parent = "")
{
    std::ifstream text(project / "doc" / page);
    std::vector<Row> rows;
    bool isTable = false;
    for (std::string line; std::getline(text, line);) {
        isTable = line == "<!-- layout -->" || (isTable && line.starts_with("|"));
        if (!isTable || !line.starts_with("| `"))
            continue;
        std::vector<std::string> cells;
        for (std::size_t begin = 1; begin < line.size();) {
            const std::size_t end = std::min(line.find('|', begin), line.size());
            cells.push_back(line.substr(begin, end - begin));
            begin = end + 1;
        }
        if (cells.size() != 4) {
            ADD_FAILURE() << page << ": a row has four cells: " << line;
            continue;
        }
        const auto files = quotedIn(cells[1]);
        Row row{fullName(quotedIn(cells[0]).at(0), parent), {files.begin(), files.end()}, {}};
        for (const std::string& folder : quotedIn(cells[3]))
            row.mayInclude.insert(fullName(folder, parent));
        rows.push_back(std::move(row));
    }
    return rows;
}

std::vector<Row> toolRows() { return rowsOf("module-tool.md", "src/modtool/"); }

std::vector<Row> allRows()
{
    std::vector<Row> rows = rowsOf("architecture.md");
    const std::vector<Row> tool = toolRows();
    rows.insert(rows.end(), tool.begin(), tool.end());
    return rows;
}

bool isSource(const fs::path& file) { return file.extension() == ".cpp" || file.extension() == ".h"; }

/// The name of a file in a table; "" for files that are not listed.
std::string listedName(const fs::path& file)
{
    const std::string name = file.filename().string();
    if (name == "CMakeLists.txt")
        return "";
    return isSource(file) ? name.substr(0, name.find('.')) : name;
}

/// The files of src/ by folder: "src/base" and so on.
std::map<std::string, std::vector<fs::path>> filesByFolder()
{
    std::map<std::string, std::vector<fs::path>> files;
    for (const auto& entry : fs::recursive_directory_iterator(project / "src"))
        if (entry.is_regular_file())
            files[entry.path().parent_path().lexically_relative(project).string()].push_back(entry.path());
    return files;
}

TEST(Layout, EveryFileStandsInATableAndEveryRowHasItsFiles)
{
    std::map<std::string, std::set<std::string>> listed;
    for (const Row& row : allRows()) {
        EXPECT_FALSE(listed.contains(row.folder)) << row.folder << " has two rows";
        listed[row.folder] = row.files;
    }
    std::map<std::string, std::set<std::string>> found;
    for (const auto& [folder, files] : filesByFolder())
        for (const fs::path& file : files)
            if (const std::string name = listedName(file); !name.empty())
                found[folder].insert(name);
    EXPECT_GT(found.size(), 15u);
    for (const auto& [folder, names] : found)
        for (const std::string& name : names)
            EXPECT_TRUE(listed[folder].contains(name)) << folder << '/' << name << " stands in no table";
    for (const auto& [folder, names] : listed)
        for (const std::string& name : names)
            EXPECT_TRUE(found[folder].contains(name)) << folder << '/' << name << " does not exist";
}

TEST(Layout, IncludesCrossNoBoundary)
{
    static const std::regex include("^#include \"([^\"]+)\"");
    const auto files = filesByFolder();
    std::map<std::string, std::string> folderOf; // by header name
    for (const auto& [folder, paths] : files)
        for (const fs::path& path : paths)
            folderOf[path.filename().string()] = folder;
    std::size_t count = 0;
    for (const Row& row : allRows())
        for (const fs::path& path :
             files.contains(row.folder) ? files.at(row.folder) : std::vector<fs::path>()) {
            std::ifstream source(path);
            std::smatch found;
            for (std::string line; isSource(path) && std::getline(source, line);) {
                if (!std::regex_search(line, found, include))
                    continue;
                const auto target = folderOf.find(fs::path(found[1].str()).filename().string());
                if (target == folderOf.end()) // generated by the build
                    continue;
                ++count;
                EXPECT_TRUE(target->second == row.folder || row.mayInclude.contains(target->second))
                    << path << " includes " << found[1] << " of " << target->second;
            }
        }
    EXPECT_GT(count, 400u);
}

TEST(Layout, HeadersOfDifferentFoldersHaveDifferentNames)
{
    std::map<std::string, std::string> met;
    for (const auto& [folder, paths] : filesByFolder())
        for (const fs::path& path : paths)
            if (path.extension() == ".h") {
                const auto [known, isNew] = met.emplace(path.filename().string(), folder);
                EXPECT_TRUE(isNew) << path << " and " << known->second;
            }
}

/// Ensures that folders have no cyclic dependencies.
TEST(Layout, FoldersOfTheModuleToolUseOnlyFoldersAboveThem)
{
    std::set<std::string> above;
    for (const Row& row : rowsOf("architecture.md"))
        above.insert(row.folder);
    for (const Row& row : toolRows()) {
        for (const std::string& folder : row.mayInclude)
            EXPECT_TRUE(above.contains(folder)) << row.folder << " uses " << folder;
        above.insert(row.folder);
    }
}

} // namespace
