// A build on a full disk, at any point: it reports one file, and only the previous module remains.

#include "built_process.h"
#include "traced_call.h"

#include <fcntl.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/statvfs.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <fstream>
#include <set>

namespace {

namespace fs = std::filesystem;

using namespace process_test;
using Names = std::set<std::string>;

/// In the order of writing.
const std::vector<std::string> writtenNames{
    "BibleTitles.txt", "BibleStructure.csv", "_Diff_.txt", "CompactText.bin", "CompactPoint.bin",
    "WordList.txt",    "WordPoint.bin",      "Conc.bin",   "ConcP.bin",       "_Info_.txt"};

class FullDisk : public BuiltProcess
{
protected:
    std::string beside(const std::string& name) const { return modules() + "/.made.building/" + name; }

    static std::string noRoomFor(const std::string& file,
                                 const std::string& reason = "No space left on device")
    {
        return "kedrin-module: " + file + ": cannot be written (" + reason + ")\n";
    }

    void begin(bool withModule) const
    {
        if (withModule)
            beginWithTheOldModule();
        else
            beginWithNothing();
    }

    /// Whether only the old module exists, or none if there was none.
    testing::AssertionResult isAsBefore(bool withModule) const
    {
        Names names;
        if (fs::exists(modules()))
            for (const std::string& name : build_test::namesIn(modules()))
                names.insert(name);
        names.erase("BibleStructure.txt"); // shared by all modules, so not part of one
        if (names != (withModule ? Names{"made"} : Names{}))
            return testing::AssertionFailure() << "there lies " << testing::PrintToString(names);
        if (withModule && build_test::filesOf(made()) != oldFiles())
            return testing::AssertionFailure() << "the old module was changed";
        return testing::AssertionSuccess();
    }
};

class FullDiskAtACall : public FullDisk, public testing::WithParamInterface<bool>
{
};

bool needsRoom(const TracedCall& call)
{
    return !call.name.starts_with("unlink") && call.name != "rmdir" && call.name != "flock";
}

TEST_P(FullDiskAtACall, IsSaidOfItsFileWhicheverCallItIs)
{
    if (!canTrace())
        GTEST_SKIP() << "strace is not installed, or must not trace";
    begin(GetParam());
    const auto takesTheLock = [](const std::string& call) {
        return call.find("/.made.lock") != std::string::npos;
    };
    unsigned int failed = 0;
    for (const TracedCall& call : tracedCalls(buildOf(newSource()), takesTheLock)) {
        if (!needsRoom(call))
            continue;
        SCOPED_TRACE(call.text);
        begin(GetParam());
        const ForkedEnd end =
            run(withInjected({{call.name, call.number, "error=ENOSPC"}}, buildOf(newSource())));
        EXPECT_EQ(end.exitCode, 1);
        EXPECT_EQ(end.standardError, noRoomFor(fileOf(call)));
        EXPECT_TRUE(isAsBefore(GetParam()));
        ++failed;
    }
    EXPECT_GT(failed, 30u);
}

INSTANTIATE_TEST_SUITE_P(, FullDiskAtACall, testing::Bool(), [](const auto& tested) {
    return std::string(tested.param ? "WithAModule" : "WithNone");
});

/// Some file systems cannot exchange two folders.
TEST_F(FullDisk, IsSaidOfTheModuleWhereTwoMovesReplaceIt)
{
    if (!canTrace())
        GTEST_SKIP() << "strace is not installed, or must not trace";
    const auto isMove = [](const std::string& call) { return call.starts_with("rename("); };
    const Injection noExchange{"renameat2", 1, "error=EINVAL"};
    begin(true);
    unsigned int failed = 0;
    for (const TracedCall& call : tracedCalls(buildOf(newSource()), isMove, {noExchange})) {
        if (!needsRoom(call))
            continue;
        SCOPED_TRACE(call.text);
        begin(true);
        const ForkedEnd end =
            run(withInjected({noExchange, {call.name, call.number, "error=ENOSPC"}}, buildOf(newSource())));
        EXPECT_EQ(end.exitCode, 1);
        EXPECT_EQ(end.standardError, noRoomFor(call.name == "rename" ? made() : fileOf(call)));
        EXPECT_TRUE(isAsBefore(true));
        ++failed;
    }
    EXPECT_EQ(failed, 3u) << "both moves, and keeping them";
}

void writeTo(const std::string& fileName, const std::string& content) { std::ofstream(fileName) << content; }

/// Makes the mounts of this process private to its mount namespace. In a changed root, "/" may not be a mount
/// point: then this is done at the root of the namespace, which is the root after entering the namespace.
bool keepMountsPrivate()
{
    const auto madePrivate = [] { return ::mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0; };
    if (madePrivate())
        return true;
    const std::string workingFolder = std::filesystem::current_path();
    const int changedRoot = ::open("/", O_PATH | O_DIRECTORY | O_CLOEXEC);
    const int ownNamespace = ::open("/proc/self/ns/mnt", O_RDONLY | O_CLOEXEC);
    return ::setns(ownNamespace, CLONE_NEWNS) == 0 && madePrivate() && ::fchdir(changedRoot) == 0 &&
           ::chroot(".") == 0 && ::chdir(workingFolder.c_str()) == 0;
}

/// Mounts a file system in memory on a folder, visible only to this (forked) process and its children. Users
/// other than root need permission to create user namespaces.
bool mountDisk(const std::string& folder)
{
    const uid_t user = ::geteuid();
    const gid_t group = ::getegid();
    if (::unshare(CLONE_NEWNS | (user == 0 ? 0 : CLONE_NEWUSER)) != 0)
        return false;
    if (user != 0) {
        writeTo("/proc/self/setgroups", "deny");
        writeTo("/proc/self/uid_map", "0 " + std::to_string(user) + " 1");
        writeTo("/proc/self/gid_map", "0 " + std::to_string(group) + " 1");
    }
    return keepMountsPrivate() && ::mount("none", folder.c_str(), "tmpfs", 0, nullptr) == 0;
}

/// A limited resource of a disk.
enum class Limit
{
    pages,
    files
};

class SmallDisk : public FullDisk
{
protected:
    /// Runs this in a process with a small disk mounted on the modules directory.
    void onADisk(const std::function<void()>& test) const
    {
        constexpr int cannotMount = 77;
        beginWithNothing();
        const ForkedEnd end = test_support::runForked([&] {
            if (!mountDisk(modules()))
                return cannotMount;
            test();
            return HasFailure() ? 1 : 0;
        });
        if (end.exitCode == cannotMount)
            GTEST_SKIP() << "no disk can be mounted here";
        EXPECT_EQ(end.exitCode, 0) << end.standardError;
    }

    /// Builds on disks with space for one more page or file each time, until a build succeeds.
    /// @returns the files reported as not written
    Names refusedFiles(Limit limit, bool withModule) const
    {
        Names refused;
        for (unsigned int room = 0; room < 100; ++room) {
            SCOPED_TRACE("with room for " + std::to_string(room));
            begin(withModule);
            leaveRoom(limit, room);
            const ForkedEnd end = run(buildOf(newSource()));
            leaveRoom(limit, 1000);
            if (end.exitCode == 0) {
                EXPECT_TRUE(build_test::filesOf(made()) == newFiles());
                return refused;
            }
            refused.insert(refusedFile(end));
            EXPECT_TRUE(isAsBefore(withModule));
        }
        ADD_FAILURE() << "no disk was large enough";
        return refused;
    }

private:
    static std::string refusedFile(const ForkedEnd& end)
    {
        constexpr std::string_view program = "kedrin-module: ";
        const std::size_t nameEnd = std::min(end.standardError.find(": cannot"), end.standardError.size());
        const std::string file = end.standardError.substr(0, nameEnd).erase(0, program.size());
        EXPECT_EQ(end.exitCode, 1);
        EXPECT_EQ(end.standardError, noRoomFor(file));
        return file;
    }

    /// Gives the disk this much free space; it is not empty, since a limit of 0 means unlimited.
    void leaveRoom(Limit limit, std::uint64_t room) const
    {
        struct statvfs disk
        {
        };
        ASSERT_EQ(::statvfs(modules().c_str(), &disk), 0);
        const std::string option =
            limit == Limit::pages
                ? "size=" + std::to_string((disk.f_blocks - disk.f_bfree + room) * disk.f_frsize)
                : "nr_inodes=" + std::to_string(disk.f_files - disk.f_ffree + room);
        ASSERT_EQ(::mount("none", modules().c_str(), "tmpfs", MS_REMOUNT, option.c_str()), 0) << option;
    }
};

TEST_F(SmallDisk, MayBeFullAtThePageOfAnyFile)
{
    Names withContent;
    for (const std::string& name : writtenNames)
        if (!newFiles().at(name).empty())
            withContent.insert(beside(name));
    onADisk([&] { EXPECT_EQ(refusedFiles(Limit::pages, true), withContent); });
}

TEST_F(SmallDisk, MayHaveNoRoomForAnyFile)
{
    Names made{modules() + "/.made.lock", modules() + "/.made.building"};
    for (const std::string& name : writtenNames)
        made.insert(beside(name));
    Names madeFirst = made;
    madeFirst.insert(modules() + "/.BibleStructure.txt.new");
    onADisk([&] {
        EXPECT_EQ(refusedFiles(Limit::files, true), made);
        EXPECT_EQ(refusedFiles(Limit::files, false), madeFirst);
    });
}

/// Runs the program with this limit on the size of files.
ForkedEnd runWithSmallFiles(rlim_t bytes, const std::vector<std::string>& arguments)
{
    return test_support::runForked([&] {
        std::signal(SIGXFSZ, SIG_IGN);
        rlimit limit{bytes, RLIM_INFINITY};
        ::setrlimit(RLIMIT_FSIZE, &limit);
        const build_test::Result result = build_test::run(arguments);
        limit.rlim_cur = RLIM_INFINITY;
        ::setrlimit(RLIMIT_FSIZE, &limit);
        std::fputs(result.err.c_str(), stderr);
        return result.code;
    });
}

/// Works as root or not.
TEST_F(FullDisk, IsSaidOfTheFirstFileThatIsTooLong)
{
    std::set<rlim_t> limits{0};
    for (const auto& [name, content] : newFiles())
        for (const std::size_t below : {std::size_t{1}, content.size() / 2})
            limits.insert(content.size() - std::min(below, content.size()));
    for (const rlim_t limit : limits) {
        SCOPED_TRACE(limit);
        begin(true);
        const ForkedEnd end = runWithSmallFiles(limit, {"build", "-q", newSource(), made()});
        const auto refused =
            std::find_if(writtenNames.begin(), writtenNames.end(),
                         [&](const std::string& name) { return newFiles().at(name).size() > limit; });
        ASSERT_NE(refused, writtenNames.end());
        EXPECT_EQ(end.exitCode, 1);
        EXPECT_EQ(end.standardError, noRoomFor(beside(*refused), "File too large"));
        EXPECT_TRUE(isAsBefore(true));
    }
}

} // namespace
