// A build that is killed at any point: the module is the complete previous or new one, or none, and the next
// build works and removes what was left.

#include "built_process.h"
#include "traced_call.h"

#include <csignal>
#include <random>

namespace {

using namespace process_test;
using std::chrono::nanoseconds;
using std::chrono::steady_clock;

/// What existed before the killed build.
enum class Before
{
    nothing,
    module,
    moduleAndLeftovers
};

void PrintTo(Before before, std::ostream* out)
{
    constexpr const char* names[] = {"Nothing", "Module", "ModuleAndLeftovers"};
    *out << names[static_cast<int>(before)];
}

class InterruptedBuild : public BuiltProcess
{
protected:
    static bool takesTheLock(const std::string& call)
    {
        return call.find("/.made.lock") != std::string::npos;
    }

    void begin(Before before) const
    {
        if (before == Before::nothing)
            beginWithNothing();
        else
            beginWithTheOldModule();
        if (before != Before::moduleAndLeftovers)
            return;
        std::filesystem::copy(made(), modules() + "/.made.building");
        std::filesystem::remove(modules() + "/.made.building/_Info_.txt");
        m_folder.write("modules/.made.lock", "");
    }

    /// Kills one build at each of these calls.
    /// @param meanwhile  what happens at another call
    void killAtEach(const std::vector<TracedCall>& calls, Before before,
                    const std::vector<Injection>& meanwhile = {}) const
    {
        for (const TracedCall& call : calls) {
            SCOPED_TRACE(call.text);
            begin(before);
            std::vector<Injection> injections = meanwhile;
            injections.push_back({call.name, call.number, "signal=KILL"});
            EXPECT_EQ(run(withInjected(injections, buildOf(newSource()))).signal, SIGKILL);
            EXPECT_TRUE(isWhole());
            EXPECT_TRUE(nextBuildSucceeds());
        }
    }
};

class InterruptedBuildAtACall : public InterruptedBuild, public testing::WithParamInterface<Before>
{
};

TEST_P(InterruptedBuildAtACall, LeavesTheOldModuleOrTheNewOneAtEveryCall)
{
    if (!canTrace())
        GTEST_SKIP() << "strace is not installed, or must not trace";
    begin(GetParam());
    const std::vector<TracedCall> calls = tracedCalls(buildOf(newSource()), takesTheLock);
    ASSERT_GT(calls.size(), 40u) << "ten files are made, written and synced, and the folder is moved";
    killAtEach(calls, GetParam());
}

INSTANTIATE_TEST_SUITE_P(, InterruptedBuildAtACall,
                         testing::Values(Before::nothing, Before::module, Before::moduleAndLeftovers),
                         testing::PrintToStringParamName());

/// Some file systems cannot exchange two folders.
TEST_F(InterruptedBuild, LeavesAWholeModuleWhereTwoMovesReplaceIt)
{
    if (!canTrace())
        GTEST_SKIP() << "strace is not installed, or must not trace";
    const auto isMove = [](const std::string& call) { return call.starts_with("rename("); };
    const std::vector<Injection> noExchange{{"renameat2", 1, "error=EINVAL"}};
    begin(Before::module);
    const std::vector<TracedCall> calls = tracedCalls(buildOf(newSource()), isMove, noExchange);
    ASSERT_GT(calls.size(), 10u) << "two moves, and the old module's files are removed";
    killAtEach(calls, Before::module, noExchange);
}

TEST_F(InterruptedBuild, LeavesTheOldModuleOrTheNewOneAt200Moments)
{
    begin(Before::module);
    const auto began = steady_clock::now();
    ASSERT_EQ(run(buildOf(newSource())).exitCode, 0);
    const nanoseconds whole = steady_clock::now() - began;
    std::mt19937_64 random(200);
    std::uniform_int_distribution<nanoseconds::rep> moments(0, whole.count());
    unsigned int killed = 0, killedAtWork = 0;
    for (unsigned int round = 0; round < 200; ++round) {
        const nanoseconds moment(moments(random));
        SCOPED_TRACE("after " + std::to_string(moment.count()) + " of " + std::to_string(whole.count()) +
                     " ns");
        begin(round % 2 == 0 ? Before::nothing : Before::module);
        StartedProcess build(buildOf(newSource()));
        if (!build.endsWithin(moment))
            build.kill();
        const test_support::ForkedEnd end = build.wait();
        EXPECT_TRUE(end.signal == SIGKILL || end.exitCode == 0) << end.standardError;
        killed += end.signal == SIGKILL;
        killedAtWork += std::filesystem::exists(modules() + "/.made.lock");
        EXPECT_TRUE(isWhole());
        EXPECT_TRUE(nextBuildSucceeds());
    }
    RecordProperty("killed", std::to_string(killed));
    RecordProperty("killed_while_the_folder_was_made", std::to_string(killedAtWork));
}

} // namespace
