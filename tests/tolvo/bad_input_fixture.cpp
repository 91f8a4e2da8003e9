#include "bad_input_fixture.h"

#include "bible_walker.h"
#include "forked.h"

#include <algorithm>
#include <csignal>
#include <fstream>
#include <map>
#include <sys/resource.h>
#include <unistd.h>
#include <utility>

namespace bad_input {

using namespace Kedrin::Tolvo;
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

/// The message of a module that is refused with a reader's message.
std::string loadingError(const std::string& folder, const std::string& inner)
{
    return "CBible::CBible(): Error loading Bible (from folder " + folder + ");\nError message: \"" + inner +
           "\"";
}

/// The readers' messages for a file that cannot be opened.
const std::map<std::string, std::string> unopened = {
    {"BibleTitles.txt", "CTitles::CTitles(): error opening file "},
    {"BibleStructure.csv", "CBibleSructure::CBibleSructure(): error opening file "},
    {"_Diff_.txt", "CDiff::CDiff(): error opening file "},
    {"CompactPoint.bin", "CFileVector::CFileVector(): cannot open file "},
    {"CompactText.bin", "CBibleText::CBibleText(): error opening file "},
    {"WordList.txt", "CWordList::CWordList(): error opening file "},
    {"Conc.bin", "CFileVector::CFileVector(): cannot open file "},
    {"ConcP.bin", "CFileVector::CFileVector(): cannot open file "},
};

/// Whether loading a module may be refused with this message.
bool isPromisedRefusal(const std::string& message, const std::string& folder)
{
    if (message == loadingError(folder, "CBibleSructure::CBibleSructure(): error reading file " + folder +
                                            "/BibleStructure.csv"))
        return true;
    return std::any_of(unopened.begin(), unopened.end(), [&](const auto& file) {
        return message == loadingError(folder, file.second + folder + "/" + file.first);
    });
}

/// Whether validation may refuse a module that loads with this message.
bool isPromisedDoubt(const std::string& message, const std::string& folder)
{
    for (const std::string& inner :
         {"CTitles::CTitles(): error reading file " + folder + "/BibleTitles.txt",
          "CBibleSructure::CBibleSructure(): error reading file " + folder + "/BibleStructure.csv",
          std::string("CBibleSructure::ValidateBookID(): bookID out of range"),
          std::string("CBibleSructure::ValidateChapterID(): chapter out of range"),
          std::string("CBibleText::operator [](): I/O error")})
        if (message == loadingError(folder, inner))
            return true;
    return false;
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

std::string refusalOfUnopened(const std::string& fileName, const std::string& module)
{
    const auto message = unopened.find(fileName);
    if (message == unopened.end())
        return std::string();
    return loadingError(module, message->second + module + "/" + fileName);
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
