// Damaged modules: each of the ten files missing, replaced, truncated, corrupted. The result must be one of these: loading
// refuses the module with the promised message, and validation with the same one (validation may also refuse a module that
// loads, and must refuse one whose first chapter cannot be read); the translation returns results, or throws the documented
// exceptions; or the program ends with the one line that the contract of the operation promises.

#include "bad_input_fixture.h"

#include "bible_walker.h"
#include "forked.h"
#include "refusals.h"
#include "spoiled.h"

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <fstream>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace bad_input {
namespace {

using test_support::refusalOfUnopened;

TEST_P(BadInput, NothingThatIsNoFileCanBeOpened)
{
    const std::string path = module + "/" + GetParam();
    for (const test_support::NamedPath& defective : test_support::unopenableFiles(folder)) {
        SCOPED_TRACE(defective.defect);
        std::filesystem::remove_all(path);
        std::error_code noSuchLink; // a link cannot have an empty target or one that is too long
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

/// Calls `use` with the text after replacing each of its numbers by each of several others.
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

/// Calls `use` with the bytes after replacing each record of `width` bytes by each limit of its range.
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
} // namespace bad_input
