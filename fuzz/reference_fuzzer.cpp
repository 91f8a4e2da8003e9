#include "errors.h"
#include "input.h"
#include "module_files.h"
#include "module_reader.h"
#include "reference_parser.h"
#include "temp_folder.h"

#include <cstdlib>
#include <tuple>

namespace {

/// Writes a module with books of one chapter and of several, and with names that have common prefixes.
/// @returns its folder
std::string writeModule(const test_support::TempFolder& folder)
{
    using test_support::plainBook;
    test_support::makeModule("M", {plainBook(0, "Битие", {31, 25, 24}), plainBook(8, "1 Царства", {28, 36}),
                                   plainBook(9, "2 Царства", {27}), plainBook(42, "Йоан", {51, 25, 36}),
                                   plainBook(64, "Юда", {25})})
        .write(folder.path());
    return folder.path().string();
}

/// Whether a range begins and ends in the module, in this order.
bool holds(const Kedrin::ModTool::CModuleReader& module, const Kedrin::ModTool::VerseRange& range)
{
    const auto& structure = module.structure();
    return range.book < module.titles().booksCount() &&
           range.lastChapter < structure.chaptersCount(range.book) &&
           std::tuple(range.firstChapter, range.firstVerse) <=
               std::tuple(range.lastChapter, range.lastVerse) &&
           range.firstVerse < structure.versesCount(range.book, range.firstChapter) &&
           range.lastVerse < structure.versesCount(range.book, range.lastChapter);
}

} // namespace

// User input, which may be invalid UTF-8, is found in the module or refused.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    // ten times the longest reference; names are compared character by character
    constexpr std::size_t maxBytes = 256;
    if (size > maxBytes)
        return 0;
    static const test_support::TempFolder folder;
    static const Kedrin::ModTool::CModuleReader module(writeModule(folder));
    try {
        const auto ranges = Kedrin::ModTool::parseReferences(std::string(fuzz::textOf(data, size)), module);
        if (ranges.empty())
            std::abort();
        for (const auto& range : ranges)
            if (!holds(module, range))
                std::abort();
    } catch (const Kedrin::ModTool::CNotFound&) {
    }
    return 0;
}
