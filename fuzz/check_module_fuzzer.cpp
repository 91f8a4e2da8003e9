#include "bible_walker.h"
#include "check_module.h"
#include "module_input.h"

// A check finishes whatever the ten files contain, and a module in which it finds no error can be read
// completely.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    constexpr std::size_t maxBytes = 4096; // a module of a few chapters; its numbers may have any size
    if (size > maxBytes)
        return 0;
    static const fuzz::ModuleInput module;
    module.take(fuzz::textOf(data, size));
    using namespace Kedrin;
    if (ModTool::checkModule(module.path(), 2).findings.count(ModTool::Severity::error) != 0)
        return 0;
    const Tolvo::CBible bible(module.path());
    test_support::walkAnswers(bible);
    test_support::walkVerses(bible);
    test_support::walkChapters(bible);
    test_support::walkScans(bible);
    test_support::walkWords(bible);
    test_support::walkSearches(bible);
    return 0;
}
