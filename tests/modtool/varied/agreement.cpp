// The same random text through every format gives the same verses, whatever varies that must not matter.

#include "agreement.h"

#include "errors.h"
#include "read_source.h"
#include "source_text.h"
#include "temp_folder.h"
#include "varied_formats.h"

#include <algorithm>
#include <iostream>
#include <sstream>

namespace varied_test {

namespace {

/// Without verses that have no text, which some structures give for a gap.
std::string withoutEmpty(const std::string& lines)
{
    std::istringstream in(lines);
    std::string rest;
    for (std::string line; std::getline(in, line);)
        if (std::count(line.begin(), line.end(), ' ') > 1)
            rest += line + '\n';
    return rest;
}

std::string readLines(const std::string& path)
{
    try {
        return withoutEmpty(test_support::linesOf(Kedrin::ModTool::readSourceFile(path, {})));
    } catch (const Kedrin::ModTool::CBuildError& error) {
        return error.what() + std::string("\n");
    }
}

/// The first line that differs, of both.
std::string firstDifference(const std::string& expected, const std::string& got)
{
    std::istringstream first(expected), second(got);
    for (std::string a, b;;) {
        const bool hasA = static_cast<bool>(std::getline(first, a)),
                   hasB = static_cast<bool>(std::getline(second, b));
        if (!hasA && !hasB)
            return "";
        if (!hasA || !hasB || a != b)
            return "expected: " + (hasA ? a : "nothing") + "\nread:     " + (hasB ? b : "nothing") + '\n';
    }
}

/// @returns whether each format gives the text
bool agreesWith(unsigned int seed, const test_support::TempFolder& folder, const std::string& keep)
{
    CRandom textRandom(seed);
    const Text text = randomText(textRandom);
    const std::string expected = linesOf(text);
    bool agrees = true;
    for (const Format& format : formats()) {
        CRandom random(seed);
        const std::string path = writeSource(format.write(text, random), folder);
        const std::string got = readLines(path);
        if (got == expected)
            continue;
        agrees = false;
        std::cerr << format.name << ", text " << seed << ":\n" << firstDifference(expected, got);
        if (!keep.empty())
            std::filesystem::copy(path, std::filesystem::path(keep) / (format.name + std::to_string(seed)),
                                  std::filesystem::copy_options::recursive);
    }
    return agrees;
}

} // namespace

unsigned int countDisagreements(unsigned int texts, unsigned int first, const std::string& keep)
{
    const test_support::TempFolder folder;
    unsigned int differing = 0;
    for (unsigned int i = 0; i < texts; ++i)
        differing += agreesWith(first + i, folder, keep) ? 0 : 1;
    return differing;
}

} // namespace varied_test
