// doc/formats/source-tests.md: the tests named in it exist in the build.

#include "build_fixture.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <memory>
#include <set>

namespace {

std::string listedTests()
{
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> pipe(
        ::popen("'" KEDRIN_CTEST "' --show-only=json-v1 --test-dir '" KEDRIN_BUILD_FOLDER "'", "r"),
        ::pclose);
    std::string listing;
    std::array<char, 65536> piece;
    while (pipe) {
        const std::size_t count = std::fread(piece.data(), 1, piece.size(), pipe.get());
        if (count == 0)
            break;
        listing.append(piece.data(), count);
    }
    return listing;
}

/// Whether the code text is the name of a test: "Subject.Fact", or "Subject.*" for several.
bool isTestName(const std::string& code)
{
    const std::size_t point = code.find('.');
    const auto isCapital = [](char c) { return c >= 'A' && c <= 'Z'; };
    return point != std::string::npos && point + 1 < code.size() && isCapital(code[0]) &&
           (isCapital(code[point + 1]) || code[point + 1] == '*') &&
           std::all_of(code.begin(), code.end(), [](char c) {
               return c == '.' || c == '*' || std::isalnum(static_cast<unsigned char>(c));
           });
}

std::set<std::string> testsNamedIn(const std::string& page)
{
    std::set<std::string> names;
    for (std::size_t begin = page.find('`'); begin != std::string::npos;) {
        const std::size_t end = std::min(page.find('`', begin + 1), page.size());
        if (const std::string code = page.substr(begin + 1, end - begin - 1); isTestName(code))
            names.insert(code);
        begin = page.find('`', end + 1);
    }
    return names;
}

TEST(SourcesPage, NamesTestsThatExist)
{
    const std::set<std::string> names =
        testsNamedIn(build_test::bytesOf(KEDRIN_FORMATS_FOLDER "/source-tests.md"));
    EXPECT_GT(names.size(), 100u);
    const std::string listing = listedTests();
    for (const std::string& name : names) {
        const bool isPattern = name.ends_with('*');
        const std::string listed =
            "\"name\" : \"" + (isPattern ? name.substr(0, name.size() - 1) : name + '"');
        EXPECT_NE(listing.find(listed), std::string::npos) << name;
    }
}

TEST(SourcesPage, NamesEveryTestOfItsSubjects)
{
    const std::string page = build_test::bytesOf(KEDRIN_FORMATS_FOLDER "/source-tests.md");
    const std::string listing = listedTests();
    for (const char* subject :
         {"OsisReader.",     "OsisVariety.",       "UsfmReader.",     "UsfmVariety.", "ZefaniaReader.",
          "ZefaniaVariety.", "VerseLinesVariety.", "BebliaReader.",   "CesReader.",   "JsonReader.",
          "OpenSongReader.", "SqliteReader.",      "ZipArchive.",     "UsxReader.",   "UsfxReader.",
          "OddBooks.",       "PlainBalance.",      "PlainDetection.", "PlainLines.",  "PlainPage.",
          "PlainTables.",    "Letters.",           "NothingLost."}) {
        const std::string begin = std::string("\"name\" : \"") + subject;
        for (std::size_t i = listing.find(begin); i != std::string::npos; i = listing.find(begin, i + 1)) {
            const std::size_t name = i + begin.size() - std::string(subject).size();
            const std::string test = listing.substr(name, listing.find('"', name) - name);
            EXPECT_NE(page.find('`' + test + '`'), std::string::npos) << test;
        }
    }
}

} // namespace
