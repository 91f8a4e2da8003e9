// Damaged modules made from seeds, in the engine: each is validated, loaded, read and searched. Allowed: it is
// refused with a promised message, or every operation returns or throws what its contract names. Operations
// that may end the program are tried in a process of their own, for one seed of twenty.

#include "bible_walker.h"
#include "forked.h"
#include "random_module.h"
#include "refusals.h"
#include "seed_run.h"
#include "temp_folder.h"

#include <csignal>
#include <filesystem>
#include <memory>
#include <stdexcept>

namespace {

using namespace test_support;
using Kedrin::Tolvo::CBible;

constexpr unsigned int oneOf = 20; // seeds whose operations that may end the program are tried

std::string refusal(const std::function<void()>& operation)
{
    try {
        operation();
    } catch (const std::runtime_error& ex) {
        return ex.what();
    }
    return {};
}

Outcome afterWalk(const CBible& bible, void (*walk)(const CBible&))
{
    const ForkedEnd end = runForked([&] {
        walk(bible);
        return 0;
    });
    if (end.exitCode == 0)
        return {};
    const std::string line = end.standardError.substr(0, end.standardError.find('\n'));
    if (end.signal == SIGABRT && isPromisedEnd(line))
        return {};
    return {"ends with \"" + line + "\"", false};
}

Outcome afterUse(const CBible& bible, unsigned int seed)
{
    walkAnswers(bible);
    walkSearches(bible);
    walkChapters(bible);
    if (seed % oneOf == 0)
        for (const auto walk : {walkVerses, walkScans, walkWords})
            if (const Outcome outcome = afterWalk(bible, walk); !outcome.allowed)
                return outcome;
    return {"loads, answers and can be searched"};
}

/// Existing files are written again, which is faster than new ones.
void writeInto(const std::string& folder, const ModuleFiles& files)
{
    for (const auto& entry : std::filesystem::directory_iterator(folder))
        if (!files.bytes.contains(entry.path().filename()))
            std::filesystem::remove(entry);
    files.write(folder);
}

Outcome tryModule(const std::string& folder, unsigned int seed)
{
    Random random(seed);
    ModuleFiles files = randomModule("А", random);
    damage(files, randomModule("Б", random), random);
    writeInto(folder, files);

    const std::string doubt = refusal([&] { CBible::Validate(folder); });
    std::unique_ptr<const CBible> bible;
    const std::string loading = refusal([&] { bible = std::make_unique<CBible>(folder); });
    if (!bible && doubt != loading)
        return {"refused, but validated with \"" + doubt + "\"", false};
    if (!bible)
        return {"refused when loaded", isPromisedRefusal(loading, folder)};
    if (!doubt.empty() && !isPromisedDoubt(doubt, folder))
        return {"refused with \"" + doubt + "\"", false};
    if (doubt.empty())
        bible->chapterVerses(0, 0);
    const Outcome used = afterUse(*bible, seed);
    return used.allowed && !doubt.empty()
               ? Outcome{"refused by the validation; loaded nevertheless, it answers"}
               : used;
}

} // namespace

int main(int argc, char** argv)
{
    const SeedRun run = seedRunOf(argc, argv);
    const TempFolder folder;
    return trySeeds(run, [&](unsigned int seed) { return tryModule(folder.path(), seed); });
}
