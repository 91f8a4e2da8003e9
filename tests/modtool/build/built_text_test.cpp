// How the text of a source becomes the text of a module: composition, white space, substitutes, markup.

#include "build_fixture.h"

namespace {

using build_test::Result;

class BuiltText : public build_test::Building
{
protected:
    /// The stored text of a single verse.
    std::string stored(const std::string& text, const std::vector<std::string>& options = {}) const
    {
        const Result result = build("Gen\t1\t1\t" + text + "\nGen\t1\t2\tкрай\n", options);
        EXPECT_EQ(result.code, 0) << result.err;
        return result.code == 0 ? verse(0, 0, 0) : "";
    }
    std::string substituted(const std::string& text) const { return stored(text, {"--substitute"}); }
};

TEST_F(BuiltText, IsComposed)
{
    EXPECT_EQ(stored("Йов и\u0306 \u0435\u0308"), "Йов й ё");
    EXPECT_EQ(stored("\u0418\u0306"), "Й");
}

TEST_F(BuiltText, WhiteSpaceIsCollapsed)
{
    EXPECT_EQ(stored("  а\t \u00A0 б\u2028в \v\f г \u0085 "), "а б в г");
}

TEST_F(BuiltText, LineEndsInsideAFieldAreWhiteSpace) { EXPECT_EQ(stored("а\rб"), "а б"); }

TEST_F(BuiltText, MarkupCharactersAreEscaped)
{
    EXPECT_EQ(stored("<b>a & b</b> &amp;"), "&lt;b&gt;a &amp; b&lt;/b&gt; &amp;amp;");
    EXPECT_EQ(words(), (std::vector<std::string>{"a", "amp", "b", "край"}));
}

TEST_F(BuiltText, SoftHyphensAreRemovedAndCounted)
{
    const Result result = build("Gen\t1\t1\tсло\u00ADво\n");
    EXPECT_EQ(result.code, 0);
    EXPECT_EQ(verse(0, 0, 0), "слово");
    EXPECT_EQ(reported(result, "replaced"), "      U+00AD SOFT HYPHEN removed, 1 time, first at Gen 1:1");
}

TEST_F(BuiltText, EveryCharacterOfWindows1251IsTaken)
{
    const std::string all = "ЂЃ‚ѓ„…†‡€‰Љ‹ЊЌЋЏђ‘’“”•–—™љ›њќћџЎўЈ¤Ґ¦§Ё©Є«¬®Ї°±Ііґµ¶·ё№є»јЅѕїАЯая~!";
    EXPECT_EQ(stored(all), all);
}

TEST_F(BuiltText, WhatWindows1251LacksIsRefusedWithAList)
{
    EXPECT_EQ(refusal("Gen\t1\t1\tÆ é\nGen\t1\t2\té\u0007 𝄞\u0098\n"),
              "kedrin-module: the text contains characters that Windows-1251 lacks (--substitute "
              "replaces them):\n"
              "  U+0007 <control-0007>, 1 time, first at Gen 1:2\n"
              "  U+0098 <control-0098>, 1 time, first at Gen 1:2\n"
              "  U+00C6 LATIN CAPITAL LETTER AE, 1 time, first at Gen 1:1\n"
              "  U+00E9 LATIN SMALL LETTER E WITH ACUTE, 2 times, first at Gen 1:1\n"
              "  U+1D11E MUSICAL SYMBOL G CLEF, 1 time, first at Gen 1:2\n");
}

TEST_F(BuiltText, NothingIsRefusedForABookThatIsLeftOut)
{
    EXPECT_EQ(build("Gen\t1\t1\tБог\nPrMan\t1\t1\tæ\n").code, 0);
}

TEST_F(BuiltText, ZeroBytesAreRefused)
{
    EXPECT_NE(refusal(std::string("Gen\t1\t1\tа\0б\n", 14)).find("U+0000 <control-0000>, 1 time"),
              std::string::npos);
}

TEST_F(BuiltText, TableGoesBeforeDecomposition)
{
    EXPECT_EQ(substituted("ѝЍ æÆ œŒ ßẞ ǽ øØ łŁ đ þÞ"), "иИ aeAe oeOe ssSs ae oO lL d thTh");
    EXPECT_EQ(substituted("¡¿ ¢ £ ª º × ÷"), "!? c GBP a o x :");
}

TEST_F(BuiltText, DashesQuotesAndSignsHaveSubstitutes)
{
    EXPECT_EQ(substituted("a\u2010b\u2011c\u2012d\u2015e\u2212f"), "a-b-c–d—e-f");
    EXPECT_EQ(substituted("\u201Ba\u201F \u2032\u2033 \u02BCx \u2044 \u2192"), "‘a“ '\" ’x / -&gt;");
    EXPECT_EQ(substituted("\u3008a\u3009 \u300Ab\u300B \u3001\u3002"), "‹a› «b» ,.");
}

TEST_F(BuiltText, SpecialSpacesBecomeSpaces)
{
    EXPECT_EQ(substituted("a\u2002b\u2009c\u202Fd\u3000e\u2003\u2003f \u2007"), "a b c d e f");
}

TEST_F(BuiltText, InvisibleCharactersAreRemoved)
{
    EXPECT_EQ(substituted("а\u200Bб\u200Cв\u200Dг\uFEFFд\u2060е\u0007ж\u202Eз"), "абвгдежз");
}

TEST_F(BuiltText, DecompositionComesWithoutAccents)
{
    EXPECT_EQ(substituted("éàñç ĀŠ ﬁ ½ … № ǆ"), "eanc AS fi 1/2 … № dz");
    EXPECT_EQ(substituted("а\u0301б ӥ"), "аб и");
}

TEST_F(BuiltText, WhatHasNoEquivalentBecomesAQuestionMark)
{
    EXPECT_EQ(substituted("λόγος 神 𝄞"), "????? ? ?");
}

TEST_F(BuiltText, EachKindOfSubstituteIsCounted)
{
    const Result result = build("Gen\t1\t1\té\nGen\t1\t2\tée\u0301\n", {"--substitute"});
    EXPECT_EQ(reported(result, "replaced"),
              "      U+00E9 LATIN SMALL LETTER E WITH ACUTE with \"e\", 3 times, first at Gen 1:1");
}

TEST_F(BuiltText, NoncharactersAreSubstitutedToo) { EXPECT_EQ(substituted("a\uFFFEb\uE000c"), "a?b?c"); }

} // namespace
