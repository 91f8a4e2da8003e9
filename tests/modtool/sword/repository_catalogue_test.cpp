// Descriptions of texts in a repository's catalogue.

#include "repository_catalogue.h"

#include "loopback_server.h"

#include <gtest/gtest.h>

namespace {

using namespace Kedrin::ModTool;

TEST(SwordConfiguration, IsSectionsOfKeysAndValues)
{
    const auto sections =
        readSwordConfiguration("outside=1\n# note=1\n[Made]\r\nModDrv = zText\r\n\nno value\n"
                               "About=One\\\nTwo = 2\nHistory=a\nHistory=b\n[Other]\nA=\\");
    ASSERT_EQ(sections.size(), 2u);
    EXPECT_EQ(sections[0].name, "Made");
    EXPECT_EQ(sections[0].entries.size(), 4u);
    EXPECT_EQ(sections[0].entry("ModDrv"), "zText");
    EXPECT_EQ(sections[0].entry("About"), "One\\par Two = 2");
    EXPECT_EQ(sections[0].entry("History"), "a") << "the first";
    EXPECT_EQ(sections[0].entry("Lost"), "");
    EXPECT_EQ(sections[1].entry("A"), "\\") << "at the end";
}

TEST(SwordConfiguration, IsReadAsItIsWritten)
{
    const SwordDescription made{"Made", {{"DataPath", "./text/"}, {"About", "One\\par Two"}}};
    EXPECT_EQ(swordConfiguration(made), "[Made]\nDataPath=./text/\nAbout=One\\par Two\n");
    const auto sections = readSwordConfiguration(swordConfiguration(made));
    ASSERT_EQ(sections.size(), 1u);
    EXPECT_EQ(sections[0].entries, made.entries);
}

TEST(SwordCatalogue, IsTheConfigurationsInItsFolder)
{
    const std::string packed = build_test::tarGz(
        build_test::tarEntry("mods.d/", "", '5') + build_test::tarEntry("mods.d/a.conf", "[A]\n") +
        build_test::tarEntry("./mods.d/b.conf", std::string(513, ' ')) +
        build_test::tarEntry("mods.d/sub/c.conf", "[C]\n") + build_test::tarEntry("mods.d/d.txt", "[D]\n") +
        build_test::tarEntry("e.conf", "[E]\n") + build_test::tarEntry("mods.d/f.conf", "", '2') +
        build_test::tarEntry("mods.d/g.conf", "[G]\n", '\0'));
    EXPECT_EQ(readSwordCatalogue(packed),
              (std::vector<std::string>{"[A]\n", std::string(513, ' '), "[G]\n"}));
}

} // namespace
