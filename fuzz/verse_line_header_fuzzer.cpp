#include "errors.h"
#include "input.h"
#include "module_format.h"
#include "prepare.h"
#include "verse_line_header.h"

#include <cstdlib>

namespace {

using namespace Kedrin::ModTool;

SourceBible twoVerses()
{
    SourceBible bible;
    bible.books = {"Gen", "John"};
    bible.text = "слово";
    bible.verses = {{0, 1, 1, 0, 10, 1}, {1, 1, 1, 0, 10, 2}};
    return bible;
}

bool isLine(const std::string& text)
{
    return !text.empty() && text.size() <= maxLineBytes && text.find('\n') == std::string::npos;
}

} // namespace

// The header lines, whether valid UTF-8 or not, give titles, a copyright and differences that fit into the
// files of a module, or are refused.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    constexpr std::size_t maxBytes = 2048; // a few lines of the maximum length in a module
    if (size > maxBytes)
        return 0;
    std::string_view rest = fuzz::textOf(data, size);
    SourceBible bible = twoVerses();
    try {
        CVerseLineHeader header;
        while (!rest.empty()) {
            const std::string_view line = rest.substr(0, rest.find('\n'));
            rest.remove_prefix(std::min(line.size() + 1, rest.size()));
            header.take('#' + std::string(line));
        }
        header.giveTo(bible);
        BuildOptions options;
        options.substitute = true;
        BuildReport report;
        const ModuleData module = prepareModule(bible, options, report);
        if (!isLine(module.info.fullTitle) || !isLine(module.info.shortTitle) ||
            !isLine(module.info.abbreviatedTitle))
            std::abort();
        for (const BookTitles& titles : module.bookTitles)
            if (!isLine(titles.fullTitle) || !isLine(titles.shortTitle) || !isLine(titles.abbreviatedTitle))
                std::abort();
        for (const std::string& line : module.info.copyright)
            if (line.size() > maxLineBytes)
                std::abort();
    } catch (const CBuildError&) {
    }
    return 0;
}
