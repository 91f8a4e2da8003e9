// The outputs of the program: pipes, devices and links are preserved, and a failed output is reported.

#include "built_process.h"

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <thread>

namespace {

namespace fs = std::filesystem;

using namespace process_test;

std::string contentOf(const fs::path& file)
{
    std::ifstream in(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

class Output : public BuiltProcess
{
protected:
    void SetUp() override { beginWithTheOldModule(); }

    Command exportTo(const std::string& file) const
    {
        return tool({"export", made(), file, "--to", "verse-lines"});
    }

    std::string exported() const
    {
        const std::string file = position("expected.txt");
        EXPECT_EQ(run(exportTo(file)).exitCode, 0);
        return contentOf(file);
    }

    std::string position(const std::string& name) const
    {
        return (fs::path(modules()).parent_path() / name).string();
    }

    static std::string refusal(const std::string& file, const std::string& reason)
    {
        return "kedrin-module: " + file + ": cannot be written (" + reason + ")\n";
    }

    /// Runs the program with the standard output set up by `prepare`.
    static ForkedEnd runWith(const std::function<void()>& prepare, const Command& command)
    {
        return test_support::runForked([&]() -> int {
            prepare();
            become(command);
        });
    }
    static void toFullDevice()
    {
        const int full = ::open("/dev/full", O_WRONLY);
        ::dup2(full, STDOUT_FILENO);
    }
    static void toNothing() { ::close(STDOUT_FILENO); }
    static void allowFilesOf(rlim_t byteCount)
    {
        const rlimit limit = {byteCount, byteCount};
        ::setrlimit(RLIMIT_FSIZE, &limit);
    }
};

constexpr const char* unwritten = "kedrin-module: the output cannot be written\n";

TEST_F(Output, PipeStaysAndIsWrittenInto)
{
    const std::string pipe = position("pipe");
    ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
    std::string got;
    std::thread reader([&] { got = contentOf(pipe); });
    EXPECT_EQ(run(exportTo(pipe)).exitCode, 0);
    reader.join();
    EXPECT_TRUE(fs::is_fifo(pipe));
    EXPECT_EQ(got, exported());
}

TEST_F(Output, DeviceStaysAndIsWrittenInto)
{
    EXPECT_EQ(run(exportTo("/dev/null")).exitCode, 0);
    EXPECT_TRUE(fs::is_character_file("/dev/null"));
    const ForkedEnd end = run(exportTo("/dev/full"));
    EXPECT_EQ(end.exitCode, 3);
    EXPECT_EQ(end.standardError, refusal("/dev/full", "No space left on device"));
    EXPECT_TRUE(fs::is_character_file("/dev/full"));
}

TEST_F(Output, LinkStaysAndItsFileIsReplaced)
{
    const std::string file = position("folder/file.txt"), link = position("link"),
                      linkToLink = position("second");
    fs::create_directory(position("folder"));
    std::ofstream(file) << "before";
    fs::create_symlink("folder/file.txt", link);
    fs::create_symlink(link, linkToLink);
    EXPECT_EQ(run(exportTo(linkToLink)).exitCode, 0);
    EXPECT_TRUE(fs::is_symlink(link) && fs::is_symlink(linkToLink));
    EXPECT_EQ(contentOf(file), exported());
    EXPECT_EQ(build_test::namesIn(position("folder")).size(), 1u);
}

TEST_F(Output, FileThatALinkNamesIsMade)
{
    const std::string link = position("dangling");
    fs::create_symlink("made.txt", link);
    EXPECT_EQ(run(exportTo(link)).exitCode, 0);
    EXPECT_TRUE(fs::is_symlink(link));
    EXPECT_TRUE(fs::is_regular_file(fs::symlink_status(position("made.txt"))));
    EXPECT_EQ(contentOf(link), exported());
}

TEST_F(Output, LinkToADeviceIsWrittenInto)
{
    const std::string link = position("full");
    fs::create_symlink("/dev/full", link);
    EXPECT_EQ(run(exportTo(link)).standardError, refusal(link, "No space left on device"));
    EXPECT_TRUE(fs::is_symlink(link));
}

TEST_F(Output, LinkInACircleAndAFolderAreRefused)
{
    const std::string link = position("circle");
    fs::create_symlink("circle", link);
    EXPECT_EQ(run(exportTo(link)).standardError, refusal(link, "Too many levels of symbolic links"));
    EXPECT_EQ(run(exportTo(modules())).standardError, refusal(modules(), "Is a directory"));
    EXPECT_TRUE(fs::is_symlink(link) && fs::is_directory(modules()));
}

TEST_F(Output, StandardOutputByItsNameIsWrittenInto)
{
    const std::string file = position("by-name.txt");
    const auto toFile = [&] { ::dup2(::open(file.c_str(), O_WRONLY | O_CREAT, 0600), STDOUT_FILENO); };
    EXPECT_EQ(runWith(toFile, exportTo("/dev/stdout")).exitCode, 0);
    EXPECT_EQ(contentOf(file), exported());
    EXPECT_EQ(runWith(toFullDevice, exportTo("/dev/stdout")).standardError,
              refusal("/dev/stdout", "No space left on device"));
}

TEST_F(Output, ForeignFileWithTheTemporaryNameStays)
{
    const std::string file = position("export.txt"), beside = position(".export.txt.new");
    fs::create_symlink("elsewhere", beside);
    EXPECT_EQ(run(exportTo(file)).standardError, refusal(beside, "Too many levels of symbolic links"));
    EXPECT_TRUE(fs::is_symlink(beside) && !fs::exists(position("elsewhere")));
    fs::remove(beside);
    ASSERT_EQ(::mkfifo(beside.c_str(), 0600), 0);
    EXPECT_EQ(run(exportTo(file)).standardError, refusal(beside, "No such device or address"));
    const int reader = ::open(beside.c_str(), O_RDONLY | O_NONBLOCK);
    EXPECT_EQ(run(exportTo(file)).standardError, refusal(beside, "it is not a regular file"));
    ::close(reader);
    EXPECT_TRUE(fs::is_fifo(beside));
}

TEST_F(Output, GlobalStructureThatIsALinkStaysOne)
{
    const std::string structure = modules() + "/BibleStructure.txt";
    fs::rename(structure, position("common.txt"));
    std::ofstream(position("common.txt")) << "before";
    fs::create_symlink(position("common.txt"), structure);
    EXPECT_EQ(run(buildOf(newSource())).exitCode, 0);
    EXPECT_TRUE(fs::is_symlink(structure));
    EXPECT_GT(contentOf(position("common.txt")).size(), 1000u);
    fs::remove(structure);
    fs::create_symlink("/dev/null", structure);
    EXPECT_EQ(run(buildOf(newSource())).exitCode, 0);
    EXPECT_TRUE(fs::is_symlink(structure));
}

TEST_F(Output, LockThatIsNotAFileStays)
{
    const std::string lock = modules() + "/.made.lock";
    fs::create_symlink("elsewhere", lock);
    EXPECT_EQ(run(buildOf(newSource())).standardError, refusal(lock, "Too many levels of symbolic links"));
    EXPECT_TRUE(fs::is_symlink(lock) && !fs::exists(modules() + "/elsewhere"));
    fs::remove(lock);
    ASSERT_EQ(::mkfifo(lock.c_str(), 0600), 0);
    EXPECT_EQ(run(buildOf(newSource())).standardError, refusal(lock, "it is not a regular file"));
    EXPECT_TRUE(fs::is_fifo(lock));
    fs::remove(lock);
    EXPECT_EQ(run(buildOf(newSource())).exitCode, 0);
}

TEST_F(Output, ThatCannotBeWrittenIsSaid)
{
    Command build = buildOf(newSource());
    build.erase(std::remove(build.begin(), build.end(), "-q"), build.end());
    for (const Command& command :
         {tool({"--help"}), tool({"build", "--help"}), tool({"show", "--help"}), tool({"check", made()}),
          tool({"check", "--json", made()}), tool({"check", "--list"}), build,
          tool({"export", made(), "--to", "osis"}), tool({"info", made()}), tool({"words", made()})}) {
        SCOPED_TRACE(command.at(1));
        for (const auto& prepare : {toFullDevice, toNothing}) {
            const ForkedEnd end = runWith(prepare, command);
            EXPECT_EQ(end.exitCode, 3);
            EXPECT_EQ(end.standardError, unwritten);
        }
    }
    EXPECT_TRUE(build_test::filesOf(made()) == newFiles());
}

TEST_F(Output, NothingToWriteNeedsNoOutput)
{
    for (const auto& prepare : {toFullDevice, toNothing}) {
        EXPECT_EQ(runWith(prepare, tool({"check", "-q", made()})).exitCode, 0);
        EXPECT_EQ(runWith(prepare, exportTo(position("quiet.txt"))).exitCode, 0);
        EXPECT_EQ(runWith(prepare, tool({"show"})).exitCode, 2);
    }
}

/// The dynamic loader needs a descriptor, so 4 is the minimum for starting a program.
TEST_F(Output, TooFewDescriptorsAreSaid)
{
    for (const Command& command : {tool({"info", made()}), tool({"words", made()}), buildOf(newSource())}) {
        unsigned int refused = 0;
        int exitCode = -1;
        for (rlim_t count = 4; count < 32 && exitCode != 0; ++count) {
            SCOPED_TRACE(command.at(1) + " with " + std::to_string(count));
            const auto limited = [&] {
                for (int descriptor = 3; descriptor < 100; ++descriptor)
                    ::fcntl(descriptor, F_SETFD, FD_CLOEXEC);
                const rlimit limit = {count, count};
                ::setrlimit(RLIMIT_NOFILE, &limit);
            };
            const ForkedEnd end = runWith(limited, command);
            exitCode = end.exitCode;
            if (exitCode == 0)
                break;
            ++refused;
            EXPECT_NE(end.standardError.find("Too many open files"), std::string::npos) << end.standardError;
        }
        EXPECT_EQ(exitCode, 0);
        EXPECT_GT(refused, 0u) << command.at(1);
    }
}

TEST_F(Output, FileBeyondTheLimitOfTheProcessIsSaid)
{
    constexpr rlim_t roomForTheMessage = 1024; // standard error is a file too
    const auto limited = [] { allowFilesOf(roomForTheMessage); };
    const auto before = build_test::filesOf(made());
    const ForkedEnd build = runWith(limited, buildOf(newSource()));
    EXPECT_EQ(build.signal, 0);
    EXPECT_EQ(build.exitCode, 1);
    EXPECT_EQ(build.standardError, refusal(modules() + "/.made.building/CompactText.bin", "File too large"));
    EXPECT_TRUE(build_test::filesOf(made()) == before);
    const ForkedEnd exporting = runWith(limited, exportTo(position("large.txt")));
    EXPECT_EQ(exporting.signal, 0);
    EXPECT_EQ(exporting.exitCode, 3);
    EXPECT_EQ(exporting.standardError, refusal(position(".large.txt.new"), "File too large"));
}

} // namespace
