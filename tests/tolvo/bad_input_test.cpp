// Damaged modules: each of the ten files missing, replaced, cut short, spoiled. What comes of it is always one of
// three: the loading refuses with the promised message, which a proof gives as well (and a proof may refuse what loads,
// but nothing whose first chapter cannot be read passes it); the translation answers, or
// throws what the operation's list names; or the program ends with the one line that the contract of the operation promises.

#include "bible_walker.h"
#include "forked.h"
#include "module_files.h"
#include "spoiled.h"
#include "temp_folder.h"

#include <gtest/gtest.h>

#include <csignal>
#include <fstream>
#include <functional>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

using namespace Kedrin::Tolvo;
using test_support::ModuleFiles;
using test_support::TempFolder;

using Walk = void (*)(const CBible&);

/// A sound module whose every file holds something.
ModuleFiles soundModule()
{
    ModuleFiles files = test_support::smallModule();
    files.bytes["_Diff_.txt"] = "1 2 1 0 1\r\n";
    return files;
}

/// A huge count in a file must not become a huge allocation: memory may grow by this much and no more.
void limitMemory()
{
#if !defined(KEDRIN_SANITIZE) // its shadow memory alone is larger than any limit
    constexpr rlim_t growth = 96u << 20;
    rlim_t pages = 0;
    std::ifstream("/proc/self/statm") >> pages;
    const rlim_t limit = pages * static_cast<rlim_t>(::sysconf(_SC_PAGESIZE)) + growth;
    const rlimit bytes = {limit, limit};
    ::setrlimit(RLIMIT_AS, &bytes);
#endif
}

std::string refusal(const std::function<void()>& operation)
{
    try {
        operation();
    } catch (const std::runtime_error& ex) {
        return ex.what();
    }
    return std::string();
}

/// Whether the message is the loading's, about this folder, and holds a message of one of the readers.
bool isPromisedRefusal(const std::string& message, const std::string& folder)
{
    const std::string start =
        "CBible::CBible(): Error loading Bible (from folder " + folder + ");\nError message: \"";
    if (!message.starts_with(start) || !message.ends_with("\""))
        return false;
    const std::string inner = message.substr(start.size(), message.size() - start.size() - 1);
    for (const auto& [text, fileName] : std::vector<std::pair<std::string, std::string>>{
             {"CTitles::CTitles(): error opening file ", "BibleTitles.txt"},
             {"CBibleSructure::CBibleSructure(): error opening file ", "BibleStructure.csv"},
             {"CBibleSructure::CBibleSructure(): error reading file ", "BibleStructure.csv"},
             {"CDiff::CDiff(): error opening file ", "_Diff_.txt"},
             {"CFileVector::CFileVector(): cannot open file ", "CompactPoint.bin"},
             {"CBibleText::CBibleText(): error opening file ", "CompactText.bin"},
             {"CWordList::CWordList(): error opening file ", "WordList.txt"},
             {"CFileVector::CFileVector(): cannot open file ", "Conc.bin"},
             {"CFileVector::CFileVector(): cannot open file ", "ConcP.bin"}})
        if (inner == text + folder + "/" + fileName)
            return true;
    return false;
}

/// Whether the message is one of those with which a proof refuses what loads.
bool isPromisedDoubt(const std::string& message, const std::string& folder)
{
    const std::string start =
        "CBible::CBible(): Error loading Bible (from folder " + folder + ");\nError message: \"";
    for (const std::string& inner :
         {"CTitles::CTitles(): error reading file " + folder + "/BibleTitles.txt",
          "CBibleSructure::CBibleSructure(): error reading file " + folder + "/BibleStructure.csv",
          std::string("CBibleSructure::ValidateBookID(): bookID out of range"),
          std::string("CBibleSructure::ValidateChapterID(): chapter out of range"),
          std::string("CBibleText::operator [](): I/O error")})
        if (message == start + inner + "\"")
            return true;
    return false;
}

constexpr int provenOtherwise = 2;
constexpr int unknownRefusal = 3;

/// In the forked copy: proves and loads the module, and walks it.
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

class BadInput : public testing::TestWithParam<std::string>
{
protected:
    BadInput() { files.write(module); }

    /// Writes the file under test, its other files being sound, and expects a promised outcome.
    void expectPromisedOutcomeOf(const std::string& bytes)
    {
        std::ofstream(module + "/" + GetParam(), std::ios::binary | std::ios::trunc)
            .write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
        if (!expectPromisedOutcome())
            ADD_FAILURE() << "the bytes were " << testing::PrintToString(bytes);
    }

    bool expectPromisedOutcome()
    {
        using namespace test_support;
        // where an end of the program is no promised outcome, one copy does for all
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
            EXPECT_TRUE(quiet || ended)
                << "exit code " << end.exitCode << ", signal " << end.signal << ", " << end.standardError;
            promised = promised && (quiet || ended);
        }
        return promised;
    }

    /// The message with which the module is refused; the loading's and the proof's, which are one.
    std::string refusalOfModule() const
    {
        return refusal([&] { CBible::Validate(module); });
    }

    TempFolder folder;
    std::string module = folder.file("module");
    ModuleFiles files = soundModule();
};

/// The readers' messages for a file that cannot be opened; absent: the file is not needed.
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

std::string refusalOfUnopened(const std::string& fileName, const std::string& module)
{
    const auto message = unopened.find(fileName);
    if (message == unopened.end())
        return std::string();
    return "CBible::CBible(): Error loading Bible (from folder " + module + ");\nError message: \"" +
           message->second + module + "/" + fileName + "\"";
}

TEST_P(BadInput, NothingThatIsNoFileCanBeOpened)
{
    const std::string path = module + "/" + GetParam();
    for (const test_support::NamedPath& defective : test_support::unopenableFiles(folder)) {
        SCOPED_TRACE(defective.defect);
        std::filesystem::remove_all(path);
        std::error_code noSuchLink; // nothing can lead to an empty path or one too long
        std::filesystem::create_symlink(defective.path, path, noSuchLink);
        EXPECT_EQ(refusalOfModule(), refusalOfUnopened(GetParam(), module));
        expectPromisedOutcome();
    }
}

TEST_P(BadInput, MissingFileDirectoryAndPipe)
{
    const std::string path = module + "/" + GetParam();
    const std::vector<std::function<void()>> replacements = {
        [] {}, [&] { std::filesystem::create_directory(path); }, [&] { ::mkfifo(path.c_str(), 0600); }};
    for (const auto& replace : replacements) {
        std::filesystem::remove_all(path);
        replace();
        EXPECT_EQ(refusalOfModule(), refusalOfUnopened(GetParam(), module));
        expectPromisedOutcome();
    }
}

TEST_P(BadInput, UnreadableFileCannotBeOpened)
{
    std::filesystem::permissions(folder.path(), std::filesystem::perms(0755));
    std::filesystem::permissions(module, std::filesystem::perms(0755));
    std::filesystem::permissions(module + "/" + GetParam(), std::filesystem::perms::none);
    const std::string other = module + (GetParam() == "Conc.bin" ? "/ConcP.bin" : "/Conc.bin");
    constexpr int otherUnreadableToo = 4;
    const test_support::ForkedEnd end = test_support::runForked([&] {
        test_support::becomeNobody();
        if (::access(other.c_str(), R_OK) != 0)
            return otherUnreadableToo;
        if (refusalOfModule() != refusalOfUnopened(GetParam(), module))
            return unknownRefusal;
        return proveLoadAndWalk(module, {test_support::walkAnswers, test_support::walkVerses});
    });
    if (end.exitCode == otherUnreadableToo)
        GTEST_SKIP() << "temporary files cannot be reached by an unprivileged user here";
    EXPECT_EQ(end.exitCode, 0) << end.standardError;
}

TEST_P(BadInput, FileCutShortAtEveryLength)
{
    test_support::forEveryCut(files.bytes[GetParam()],
                              [&](const std::string& bytes) { expectPromisedOutcomeOf(bytes); });
}

TEST_P(BadInput, EveryByteSpoiled)
{
    const std::string& whole = files.bytes[GetParam()];
    for (std::size_t place = 0; place < whole.size(); ++place) {
        for (const char value : {'\0', '\x80', '\xFF', '7'}) {
            std::string spoiled = whole;
            spoiled[place] = value;
            expectPromisedOutcomeOf(spoiled);
        }
    }
}

/// Calls `use` with the text after each of its numbers has been replaced by each of `replacements`.
void forEveryNumberReplaced(const std::string& text, const std::function<void(const std::string&)>& use)
{
    const std::string digits = "0123456789";
    for (std::size_t start = 0; (start = text.find_first_of(digits, start)) != std::string::npos;) {
        const std::size_t end = std::min(text.find_first_not_of(digits, start), text.size());
        for (const char* number : {"0", "-1", "-2147483649", "2147483647", "2147483648", "4294967295",
                                   "4294967296", "99999999999999999999999", "x", "+", "1.5", "0x10", ""})
            use(text.substr(0, start) + number + text.substr(end));
        start = end;
    }
}

/// Calls `use` with the bytes after every record of `width` bytes has been replaced by each bound of its range.
void forEveryRecordReplaced(const std::string& bytes, std::size_t width,
                            const std::function<void(const std::string&)>& use)
{
    for (std::size_t place = 0; place + width <= bytes.size(); place += 2) {
        for (const auto& [low, high] :
             {std::pair{'\xFF', '\xFF'}, std::pair{'\xFF', '\x7F'}, std::pair{'\0', '\x80'},
              std::pair{'\xFE', '\xFF'}, std::pair{'\0', '\0'}}) {
            std::string replaced = bytes;
            replaced.replace(place, width, std::string(1, low) + std::string(width - 2, high) + high);
            use(replaced);
        }
    }
}

TEST_P(BadInput, NumbersOutOfRange)
{
    const std::string& whole = files.bytes[GetParam()];
    const auto use = [&](const std::string& bytes) { expectPromisedOutcomeOf(bytes); };
    if (GetParam().ends_with(".bin")) {
        forEveryRecordReplaced(whole, 2, use);
        forEveryRecordReplaced(whole, 4, use);
    } else {
        forEveryNumberReplaced(whole, use);
    }
}

INSTANTIATE_TEST_SUITE_P(EachFile, BadInput,
                         testing::Values("BibleTitles.txt", "BibleStructure.csv", "_Diff_.txt",
                                         "CompactPoint.bin", "CompactText.bin", "WordList.txt",
                                         "WordPoint.bin", "Conc.bin", "ConcP.bin", "_Info_.txt"),
                         [](const auto& file) {
                             std::string name;
                             for (const char c : file.param)
                                 if (std::isalnum(static_cast<unsigned char>(c)))
                                     name.push_back(c);
                             return name;
                         });

} // namespace
