// Concurrent builds: of one folder, one works and the others are refused; of two folders, both work.

#include "built_process.h"

#include <algorithm>

namespace {

using namespace process_test;

class ConcurrentBuilds : public BuiltProcess
{
protected:
    using Started = std::vector<std::unique_ptr<StartedProcess>>;

    std::string busy() const
    {
        return "kedrin-module: " + made() + ": another build of this folder is running\n";
    }

    /// Starts builds of the old and the new text alternately.
    Started startBuilds(unsigned int count) const
    {
        Started started;
        for (unsigned int i = 0; i < count; ++i)
            started.push_back(
                std::make_unique<StartedProcess>(buildOf(i % 2 == 0 ? oldSource() : newSource())));
        return started;
    }

    /// Whether the modules directory contains only the module of one of these.
    testing::AssertionResult holdsOneOf(const std::vector<Files>& built) const
    {
        const std::vector<std::string> names = build_test::namesIn(modules());
        if (names != std::vector<std::string>{"BibleStructure.txt", "made"})
            return testing::AssertionFailure() << "there lies " << testing::PrintToString(names);
        if (std::find(built.begin(), built.end(), build_test::filesOf(made())) == built.end())
            return testing::AssertionFailure() << "the module is none of those that were built";
        return testing::AssertionSuccess();
    }
};

TEST_F(ConcurrentBuilds, OfOneFolderDoNotMix)
{
    unsigned int refused = 0;
    for (unsigned int round = 0; round < 60; ++round) {
        SCOPED_TRACE(round);
        if (round % 3 == 0)
            beginWithNothing();
        else
            beginWithTheOldModule();
        const Started builds = startBuilds(2 + round % 4);
        std::vector<Files> built;
        for (std::size_t i = 0; i < builds.size(); ++i) {
            const ForkedEnd end = builds[i]->wait();
            EXPECT_TRUE(end.exitCode == 0 || end.exitCode == 1);
            EXPECT_EQ(end.standardError, end.exitCode == 0 ? "" : busy());
            if (end.exitCode == 0)
                built.push_back(i % 2 == 0 ? oldFiles() : newFiles());
            else
                ++refused;
        }
        EXPECT_FALSE(built.empty());
        EXPECT_TRUE(holdsOneOf(built));
    }
    EXPECT_GT(refused, 0u) << "no two builds met";
    RecordProperty("refused", std::to_string(refused));
}

TEST_F(ConcurrentBuilds, OfTwoFoldersShareTheGlobalStructure)
{
    for (unsigned int round = 0; round < 30; ++round) {
        SCOPED_TRACE(round);
        beginWithNothing();
        const std::string other = modules() + "/other";
        StartedProcess first(buildOf(oldSource()));
        StartedProcess second(tool({"build", "-q", newSource(), other}));
        for (StartedProcess* build : {&first, &second}) {
            const ForkedEnd end = build->wait();
            EXPECT_EQ(end.exitCode, 0) << end.standardError;
        }
        EXPECT_TRUE(build_test::filesOf(other) == newFiles());
        std::filesystem::remove_all(other);
        EXPECT_TRUE(holdsOneOf({oldFiles()}));
        EXPECT_TRUE(nextBuildSucceeds());
    }
}

} // namespace
