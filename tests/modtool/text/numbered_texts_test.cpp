// Different texts and their numbers.

#include "numbered_texts.h"

#include <gtest/gtest.h>

namespace {

using Kedrin::ModTool::CNumberedTexts;

TEST(NumberedTexts, AreNumberedInTheOrderOfTheirFirstAppearance)
{
    CNumberedTexts texts;
    EXPECT_EQ(texts.size(), 0u);
    const std::vector<std::string> added = {"Бог", "", "бог", std::string("\0", 1), std::string("a\0b", 3),
                                            "a"};
    for (std::uint32_t number = 0; number < added.size(); ++number) {
        const auto [given, isNew] = texts.add(added[number]);
        EXPECT_EQ(given, number);
        EXPECT_TRUE(isNew);
    }
    for (std::uint32_t number = 0; number < added.size(); ++number) {
        const auto [given, isNew] = texts.add(added[number]);
        EXPECT_EQ(given, number);
        EXPECT_FALSE(isNew);
        EXPECT_EQ(texts[number], added[number]);
    }
    EXPECT_EQ(texts.size(), added.size());
}

TEST(NumberedTexts, KeepTheirNumbersAsTheyGrow)
{
    CNumberedTexts texts;
    constexpr std::uint32_t count = 100'000;
    for (const bool isFirstTime : {true, false})
        for (std::uint32_t number = 0; number < count; ++number) {
            const auto [given, isNew] = texts.add(std::string(number % 40, 'x') + std::to_string(number));
            ASSERT_EQ(given, number);
            ASSERT_EQ(isNew, isFirstTime);
        }
    EXPECT_EQ(texts.size(), count);
}

} // namespace
