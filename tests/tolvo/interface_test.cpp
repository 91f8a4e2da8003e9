// Which constructors the engine's classes have, with only its umbrella header.

#include "tolvo_bible.h"

#include <gtest/gtest.h>

#include <type_traits>

namespace {

using namespace Kedrin::Tolvo;

/// Whether a `Given` can be passed to a function that takes a `Class`.
template <typename Given, typename Class>
constexpr bool isMadeOf = std::is_convertible_v<Given, Class>;

TEST(Interface, OnlyTheCatalogueIsMadeExplicitly)
{
    EXPECT_TRUE((isMadeOf<const char*, CTitles>));
    EXPECT_TRUE((isMadeOf<const char*, CDiff>));
    EXPECT_TRUE((isMadeOf<const char*, ut::CFileVector<unsigned int>>));
    EXPECT_TRUE((isMadeOf<const char*, ut::CFileVector<unsigned short>>));
    EXPECT_TRUE((isMadeOf<std::string, CBible>));
    EXPECT_TRUE((std::is_constructible_v<CBibleModules, std::string>));
    EXPECT_FALSE((isMadeOf<std::string, CBibleModules>));
}

TEST(Interface, HoldsWhatOtherProgramsIncludeOfTheEngine)
{
    EXPECT_EQ(folder_name("/usr/share/module/"), "module");
    EXPECT_TRUE(sub_folders("/nowhere").empty());
    EXPECT_EQ(CTextScan("x", CTextScan::Case::exact).needleSize(), 1u);
}

} // namespace
