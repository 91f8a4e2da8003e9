#include "bad_input_fixture.h"

#include "bible_walker.h"
#include "forked.h"
#include "refusals.h"

#include <algorithm>
#include <csignal>
#include <fstream>
#include <map>
#include <sys/resource.h>
#include <unistd.h>
#include <utility>

namespace bad_input {

using namespace Kedrin::Tolvo;
using test_support::isPromisedDoubt;
using test_support::isPromisedRefusal;
using test_support::ModuleFiles;

namespace {

/// A valid module in which no file is empty.
ModuleFiles soundModule()
{
    ModuleFiles files = test_support::smallModule();
    files.bytes["_Diff_.txt"] = "1 2 1 0 1\r\n";
    return files;
}

/// A huge count in a file must not cause a huge allocation: memory may grow only by this much.
void limitMemory()
{
#if !defined(KEDRIN_SANITIZE) // its shadow memory exceeds any limit
    constexpr rlim_t growth = 96u << 20;
    rlim_t pages = 0;
    std::ifstream("/proc/self/statm") >> pages;
    const rlim_t limit = pages * static_cast<rlim_t>(::sysconf(_SC_PAGESIZE)) + growth;
    const rlimit bytes = {limit, limit};
    ::setrlimit(RLIMIT_AS, &bytes);
#endif
}

constexpr int provenOtherwise = 2;

} // namespace

std::string refusal(const std::function<void()>& operation)
{
    try {
        operation();
    } catch (const std::runtime_error& ex) {
        return ex.what();
    }
    return std::string();
}

int proveLoadAndWalk(const std::string& folder, const std::vector<Walk>& walks)
{
    limitMemory();
    const std::string proof = refusal([&] { CBible::Validate(folder); });
    CBible* bible = nullptr;
    const std::string loading = refusal([&] { bible = new CBible(folder); });
    if (bible == nullptr && proof != loading)
        return provenOtherwise;
    if (bible == nullptr)
        return isPromisedRefusal(loading, folder) ? 0 : unknownRefusal;
    if (!proof.empty() && !isPromisedDoubt(proof, folder))
        return unknownRefusal;
    if (proof.empty())
        bible->chapterVerses(0, 0);
    for (const Walk walk : walks)
        walk(*bible);
    delete bible;
    return 0;
}

BadInput::BadInput() : files(soundModule()) { files.write(module); }

void BadInput::expectPromisedOutcomeOf(const std::string& bytes)
{
    std::ofstream(module + "/" + GetParam(), std::ios::binary | std::ios::trunc)
        .write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    if (!expectPromisedOutcome())
        ADD_FAILURE() << "the bytes were " << testing::PrintToString(bytes);
}

bool BadInput::expectPromisedOutcome()
{
    using namespace test_support;
    // unless the program may end, all run in one process
    static const std::vector<std::vector<Walk>> together = {
        {walkAnswers, walkSearches, walkChapters, walkVerses, walkScans, walkWords}};
    static const std::vector<std::vector<Walk>> apart = {
        {walkAnswers, walkSearches, walkChapters}, {walkVerses}, {walkScans}, {walkWords}};
    const bool binary = GetParam().ends_with(".bin");
    bool promised = true;
    const std::vector<std::vector<Walk>>& attempts = binary ? apart : together;
    for (const std::vector<Walk>& walks : attempts) {
        const ForkedEnd end = runForked([&] { return proveLoadAndWalk(module, walks); });
        const std::string firstLine = end.standardError.substr(0, end.standardError.find('\n'));
        const bool quiet = end.exitCode == 0 && end.standardError.empty();
        const bool mayEnd = binary && &walks != &attempts.front();
        const bool ended = mayEnd && end.signal == SIGABRT && isPromisedEnd(firstLine);
        EXPECT_TRUE(quiet || ended) << "exit code " << end.exitCode << ", signal " << end.signal << ", "
                                    << end.standardError;
        promised = promised && (quiet || ended);
    }
    return promised;
}

std::string BadInput::refusalOfModule() const
{
    return refusal([&] { CBible::Validate(module); });
}

} // namespace bad_input
