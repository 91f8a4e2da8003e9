// A module that is abandoned while it is being added leaves nothing behind, and what is complete cannot be abandoned.

#include "add_module.h"
#include "build.h"
#include "build_fixture.h"
#include "installed_modules.h"
#include "sword_access.h"

#include <cstdlib>
#include <filesystem>
#include <limits>
#include <stdexcept>

namespace {

namespace fs = std::filesystem;
using namespace Kedrin::ModTool;

struct Abandoned : std::runtime_error
{
    Abandoned() : std::runtime_error("abandoned") {}
};

/// Abandons the operation when it is told of a certain step, as far as it may.
class CAbandoning final : public IProgress
{
public:
    /// @param step  from 0
    explicit CAbandoning(unsigned int step) : m_left(step) {}

    void show(const std::string&, std::size_t done, std::size_t total) override
    {
        if (m_left == 0 && done < total)
            throw Abandoned();
        if (m_left != 0)
            --m_left;
    }
    void clear() override {}

private:
    unsigned int m_left;
};

class AddModule : public testing::Test
{
protected:
    void SetUp() override { ::setenv("XDG_DATA_HOME", m_home.file("data").c_str(), 1); }
    void TearDown() override { ::unsetenv("XDG_DATA_HOME"); }

    /// @param text  of Genesis 1:1
    AddedModule add(const std::string& text, unsigned int abandonedStep) const
    {
        CAbandoning progress(abandonedStep);
        AddOptions options;
        options.name = "made";
        options.mayReplace = true;
        const std::string source = m_home.write("made.vpl", "Gen\t1\t1\t" + text + '\n');
        return addModule(readSource(source, {}, CSword(), progress), options, progress);
    }

    static constexpr unsigned int never = std::numeric_limits<unsigned int>::max();
    static constexpr unsigned int steps = 4;
    test_support::TempFolder m_home;
};

TEST_F(AddModule, AbandonedLeavesNoModule)
{
    for (unsigned int step = 0; step < steps; ++step) {
        EXPECT_THROW(add("Бог", step), Abandoned) << step;
        EXPECT_TRUE(installedModules().empty()) << step;
        for (const std::string& name : build_test::namesIn(ownModulesFolder()))
            EXPECT_EQ(name, "BibleStructure.txt") << step;
    }
}

TEST_F(AddModule, AbandonedLeavesTheModuleOfTheSameName)
{
    add("Бог", never);
    const auto before = build_test::filesOf(ownModulesFolder() + "/made");
    for (unsigned int step = 0; step < steps; ++step) {
        EXPECT_THROW(add("Господ", step), Abandoned) << step;
        EXPECT_EQ(build_test::filesOf(ownModulesFolder() + "/made"), before) << step;
        EXPECT_EQ(build_test::namesIn(ownModulesFolder()),
                  (std::vector<std::string>{"BibleStructure.txt", "made"}));
    }
}

TEST_F(AddModule, AbandonedLeavesTheLinkToTheSystemsModule)
{
    const std::string system = m_home.file("usr/made");
    fs::create_directories(system);
    m_home.write("usr/made/BibleTitles.txt", "");
    fs::create_directories(ownModulesFolder());
    fs::create_directory_symlink(system, ownModulesFolder() + "/made");
    for (unsigned int step = 0; step < steps; ++step) {
        EXPECT_THROW(add("Бог", step), Abandoned) << step;
        EXPECT_TRUE(fs::is_symlink(ownModulesFolder() + "/made")) << step;
    }
    EXPECT_FALSE(add("Бог", steps).hasReplaced);
    EXPECT_FALSE(fs::is_symlink(ownModulesFolder() + "/made"));
}

TEST_F(AddModule, CompleteIsNotAbandoned)
{
    EXPECT_EQ(add("Бог", steps).report.folder, ownModulesFolder() + "/made");
    EXPECT_EQ(installedModules().size(), 1u);
}

} // namespace
