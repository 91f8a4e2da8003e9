#include "build_fixture.h"

#include "program.h"
#include "text_encoder.h"

#include <algorithm>
#include <fstream>
#include <sstream>

namespace build_test {

namespace fs = std::filesystem;

void PrintTo(const Result& result, std::ostream* out)
{
    *out << "exit code " << result.code << "\nout: " << result.out << "\nerr: " << result.err;
}

Result run(const std::vector<std::string>& arguments, std::ostream* terminal)
{
    std::vector<const char*> argv{"kedrin-module"};
    for (const std::string& argument : arguments)
        argv.push_back(argument.c_str());
    std::ostringstream out, err;
    const int code =
        Kedrin::ModTool::runProgram(static_cast<int>(argv.size()), argv.data(), out, err, terminal);
    return {code, out.str(), err.str()};
}

std::string bytesOf(const std::string& fileName)
{
    std::ifstream file(fileName, std::ios::binary);
    EXPECT_TRUE(file.is_open()) << fileName;
    return {std::istreambuf_iterator<char>(file), {}};
}

std::vector<std::string> namesIn(const std::string& folder)
{
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(folder))
        names.push_back(entry.path().filename().string());
    std::sort(names.begin(), names.end());
    return names;
}

std::map<std::string, std::string> filesOf(const std::string& folder)
{
    std::map<std::string, std::string> files;
    for (const std::string& name : namesIn(folder))
        files[name] = bytesOf(folder + '/' + name);
    return files;
}

Result Building::build(std::string_view verseLines, const std::vector<std::string>& options) const
{
    m_folder.write("Made.vpl", verseLines);
    std::vector<std::string> arguments{"build", sourceName(), made()};
    arguments.insert(arguments.end(), options.begin(), options.end());
    return run(arguments);
}

std::string Building::refusal(std::string_view verseLines, const std::vector<std::string>& options) const
{
    const Result result = build(verseLines, options);
    EXPECT_EQ(result.code, 1);
    EXPECT_EQ(result.out, "");
    EXPECT_FALSE(fs::exists(made()));
    return result.err;
}

std::string Building::reported(const Result& result, const std::string& label)
{
    std::istringstream report(result.out);
    for (std::string line; std::getline(report, line);)
        if (line.starts_with(label))
            return line.substr(label.size());
    return "";
}

std::string Building::verse(unsigned int book, unsigned int chapter, unsigned int verse) const
{
    const Kedrin::Tolvo::CBible bible(made());
    return Kedrin::ModTool::toUtf8(bible[Kedrin::Tolvo::CRef(book, chapter, verse, false)]);
}

std::vector<std::string> Building::words() const
{
    std::istringstream list(Kedrin::ModTool::toUtf8(made("WordList.txt")));
    std::vector<std::string> all;
    for (std::string line; std::getline(list, line);) {
        EXPECT_TRUE(line.ends_with('\r')) << line;
        all.push_back(line.substr(0, line.size() - 1));
    }
    return all;
}

} // namespace build_test
