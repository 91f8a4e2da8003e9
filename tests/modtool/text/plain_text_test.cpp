#include "module_files.h"
#include "plain_text.h"
#include "text_columns.h"

#include <gtest/gtest.h>

using namespace Kedrin::ModTool;
using test_support::cp1251;

namespace {

std::string plain(std::string_view utf8) { return plainText(cp1251(utf8)); }

} // namespace

TEST(PlainText, BecomesUtf8) { EXPECT_EQ(plain("В начало \u2013 ёѓ\u2026"), "В начало \u2013 ёѓ\u2026"); }

TEST(PlainText, TagsAndCommentsGo)
{
    EXPECT_EQ(plain("<b>Бог</b> <font color=\"red\">рече</font><!-- <i> -->."), "Бог рече.");
    EXPECT_EQ(plain("един<br>два<p>три</p><BR/>четири"), "един два три четири");
    EXPECT_EQ(plain("све<i>т</i>а"), "света");
}

TEST(PlainText, WhatBeginsNoTagStays)
{
    EXPECT_EQ(plain("1 < 2 > 0, <3, <"), "1 < 2 > 0, <3, <");
    EXPECT_EQ(plain("<b без край"), "<b без край");
    EXPECT_EQ(plain("<!-- без край"), "<!-- без край");
}

TEST(PlainText, ReferencesBecomeCharacters)
{
    EXPECT_EQ(plain("&lt;a&gt; &amp;amp; &quot;&laquo;&#1041;&#x411;&mdash;"), "<a> &amp; \"\u00ABББ\u2014");
    EXPECT_EQ(plain("a&nbsp;b"), "a b");
    EXPECT_EQ(plain("caf&eacute; &thetasym;"), "caf\u00E9 \u03D1");
}

TEST(PlainText, WhatIsNoReferenceStays)
{
    EXPECT_EQ(plain("a & b &; &nothing; &#; &#xZ; &#0; &#x110000; &#xD800; &lt"),
              "a & b &; &nothing; &#; &#xZ; &#0; &#x110000; &#xD800; &lt");
}

TEST(PlainText, IsOneHarmlessLine)
{
    EXPECT_EQ(plainText("  a\r\n\tb \x1B[31m c\x7F  "), "a b [31m c");
    EXPECT_EQ(plainText(std::string_view("a\0b", 3)), "a");
    EXPECT_EQ(plainText("\x98"), "\uFFFD");
}

TEST(BrokenLines, BreakAtBlanks)
{
    EXPECT_EQ(brokenLines("В начало Бог", 8), (std::vector<std::string>{"В начало", "Бог"}));
    EXPECT_EQ(brokenLines("В начало Бог", 12), (std::vector<std::string>{"В начало Бог"}));
    EXPECT_EQ(brokenLines("колесници", 4), (std::vector<std::string>{"коле", "сниц", "и"}));
    EXPECT_EQ(brokenLines("", 4), std::vector<std::string>{""});
}
