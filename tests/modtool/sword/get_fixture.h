#pragma once

#include "build_fixture.h"
#include "installed_modules.h"
#include "loopback_server.h"
#include "made_sword.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>

namespace build_test {

/// A repository with one Bible, "Made", and a data folder of the test's own.
class Getting : public testing::Test
{
protected:
    void SetUp() override { ::setenv("XDG_DATA_HOME", m_home.file("data").c_str(), 1); }
    void TearDown() override { ::unsetenv("XDG_DATA_HOME"); }

    void addMade(bool isCompressed = false) const
    {
        std::filesystem::remove_all(repository() + "/texts/Made");
        m_sword.add("Made",
                    {{"Gen 1:1", "Бог"}, {"Gen 1:2", "рече"}, {"John 1:1", "Слово <note>бел.</note>"}},
                    "Description=Направена\nLang=bg\nDistributionLicense=Public Domain\n", "KJV",
                    {"OSIS", isCompressed});
    }

    /// Installed SWORD texts are a repository, too.
    const std::string& repository() const { return m_sword.path(); }
    std::string texts() const { return m_home.file("data/kedrin/sword"); }
    static std::string bibles() { return Kedrin::ModTool::ownModulesFolder(); }

    /// Writes the configuration of repositories.
    void configure(const std::string& text) const
    {
        std::filesystem::create_directories(m_sword.path() + "/.sword/InstallMgr");
        std::ofstream(m_sword.path() + "/.sword/InstallMgr/InstallMgr.conf") << text;
    }

    void expectNothingInstalled() const
    {
        EXPECT_FALSE(std::filesystem::exists(bibles()));
        EXPECT_FALSE(std::filesystem::exists(texts()));
    }

    const test_support::TempFolder m_home;
    const MadeSword m_sword;
};

} // namespace build_test
