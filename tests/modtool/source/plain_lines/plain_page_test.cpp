// doc/formats/plain-lines.md: each of its examples is read and gives what the page shows.

#include "build_fixture.h"
#include "plain_reader.h"
#include "source_text.h"

#include <sstream>
#include <vector>

namespace {

using namespace Kedrin::ModTool;

struct Example
{
    std::string file;
    std::string source; ///< the first blocks
    std::string result; ///< the last block
};

std::vector<Example> examplesOf(const std::string& page)
{
    std::vector<Example> examples;
    std::istringstream lines(page.substr(page.find("## Examples")));
    bool isNewBlock = false;
    for (std::string line; std::getline(lines, line) && !line.starts_with("## The account");) {
        if (line.starts_with('`'))
            examples.push_back({line.substr(1, line.rfind('`') - 1), "", ""});
        else if (line.starts_with("    ") && !examples.empty()) {
            Example& example = examples.back();
            if (isNewBlock) {
                example.source +=
                    example.result + (example.source.empty() && example.result.empty() ? "" : "\n");
                example.result.clear();
            }
            example.result += line.substr(4) + '\n';
        }
        isNewBlock = line.empty();
    }
    return examples;
}

TEST(PlainPage, ExamplesGiveWhatThePageShows)
{
    const std::vector<Example> examples =
        examplesOf(build_test::bytesOf(KEDRIN_FORMATS_FOLDER "/plain-lines.md"));
    ASSERT_EQ(examples.size(), 7u);
    for (const Example& example : examples) {
        CPlainReader reader;
        reader.read(example.file, example.source);
        const SourceBible bible = reader.finish(example.file);
        std::string lines = bible.findings.text() + test_support::linesOf(bible);
        EXPECT_EQ(lines, example.result) << example.file;
    }
}

} // namespace
