#include "ut_utils.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using namespace std::string_literals;

TEST(Format, ExpandsItsArguments)
{
    EXPECT_EQ(ut::format("%s-%u", "a", 7u), "a-7");
    EXPECT_EQ(ut::format("plain, 100%%"), "plain, 100%");
    EXPECT_EQ(ut::format("%s", ""), "");
}

TEST(Format, GrowsPast1023Characters)
{
    for (const std::size_t length : {1022u, 1023u, 1024u, 1025u, 100000u}) {
        const std::string text(length, 'x');
        EXPECT_EQ(ut::format("%s", text.c_str()), text) << length;
    }
}

TEST(Format, SaysWhatItCannotExpand)
{
    const wchar_t noCharacter[] = {static_cast<wchar_t>(0x110000), 0};
    EXPECT_EQ(ut::format("<%ls>", noCharacter),
              "ut::format(): cannot expand \"<%ls>\": Invalid or incomplete multibyte or wide character");
    EXPECT_EQ(ut::format("<%ls>", L"a"), "<a>");
}

TEST(Format, KeepsBytesThatAreNoUtf8)
{
    EXPECT_EQ(ut::format("<%s>", "\xC1\xEE\xE3\xFF"), "<\xC1\xEE\xE3\xFF>");
}

TEST(Chomp, RemovesOneLineEnding)
{
    EXPECT_EQ(ut::chomp("abc\r\n"), "abc");
    EXPECT_EQ(ut::chomp("abc\n"), "abc");
    EXPECT_EQ(ut::chomp("abc\r"), "abc");
    EXPECT_EQ(ut::chomp("abc"), "abc");
}

TEST(Chomp, RemovesOnlyTheLastOfSeveral)
{
    EXPECT_EQ(ut::chomp("abc\n\r"), "abc\n");
    EXPECT_EQ(ut::chomp("abc\n\n"), "abc\n");
    EXPECT_EQ(ut::chomp("abc\r\r"), "abc\r");
    EXPECT_EQ(ut::chomp("abc\r\n\r\n"), "abc\r\n");
    EXPECT_EQ(ut::chomp("abc\r\r\n"), "abc\r");
}

TEST(Chomp, ALineEndingAloneBecomesEmpty)
{
    EXPECT_EQ(ut::chomp("\n"), "");
    EXPECT_EQ(ut::chomp("\r"), "");
    EXPECT_EQ(ut::chomp("\r\n"), "");
}

TEST(Chomp, EmptyStaysEmpty) { EXPECT_EQ(ut::chomp(""), ""); }

TEST(Chomp, KeepsBlanksTabsAndLineEndingsInside) { EXPECT_EQ(ut::chomp(" a\nb \t\n"), " a\nb \t"); }

TEST(Upcase, FoldsLatinAndCyrillicLetters)
{
    EXPECT_EQ(ut::cyr_chrupcase('\x7A'), '\x5A');
    EXPECT_EQ(ut::cyr_chrupcase('\xE0'), '\xC0');
    EXPECT_EQ(ut::cyr_chrupcase('\xFF'), '\xDF');
}

// Every word list is sorted by this limited folding: ё (0xB8) and similar letters must not be folded.
TEST(Upcase, LeavesEveryOtherByte)
{
    for (const char byte : "\xB8\xA8\xC0\x7B\x40\x60\xDF\xBF\x80"s)
        EXPECT_EQ(ut::cyr_chrupcase(byte), byte);
}

TEST(Upcase, FoldsExactlyTwoRanges)
{
    for (unsigned int byte = 0; byte < 256; ++byte) {
        const bool folds = (byte >= 0x61 && byte <= 0x7A) || byte >= 0xE0;
        EXPECT_EQ(ut::cyr_chrupcase(static_cast<char>(byte)), static_cast<char>(folds ? byte - 0x20 : byte))
            << byte;
    }
}

TEST(CharCompare, GivesMinusOneZeroOrOne)
{
    EXPECT_EQ(ut::cyr_chricmp('a', 'B'), -1);
    EXPECT_EQ(ut::cyr_chricmp('b', 'A'), 1);
    EXPECT_EQ(ut::cyr_chricmp('a', 'A'), 0);
    EXPECT_EQ(ut::cyr_chricmp('\xE0', '\xC0'), 0);
}

TEST(CharCompare, ComparesUnsignedBytes)
{
    EXPECT_EQ(ut::cyr_chricmp('\xC0', 'z'), 1);
    EXPECT_EQ(ut::cyr_chricmp('z', '\xC0'), -1);
    EXPECT_EQ(ut::cyr_chricmp('\x80', '\x7F'), 1);
}

// After folding, the six characters between Z and a sort after all Latin letters.
TEST(CharCompare, ComparesTheFoldedBytes) { EXPECT_EQ(ut::cyr_chricmp('_', 'a'), 1); }

TEST(CharCompare, IoWithDiaeresisDiffersFromItsCapital) { EXPECT_EQ(ut::cyr_chricmp('\xB8', '\xA8'), 1); }

TEST(StringCompare, IgnoresCase)
{
    EXPECT_EQ(ut::cyr_stricmp("ABC", "abc"), 0);
    EXPECT_EQ(ut::cyr_stricmp("\xC1\xCE\xC3", "\xE1\xEE\xE3"), 0);
    EXPECT_EQ(ut::cyr_stricmp("", ""), 0);
}

TEST(StringCompare, AProperPrefixIsSmaller)
{
    EXPECT_EQ(ut::cyr_stricmp("ab", "abc"), -1);
    EXPECT_EQ(ut::cyr_stricmp("abc", "AB"), 1);
    EXPECT_EQ(ut::cyr_stricmp("", "\x01"), -1);
    EXPECT_EQ(ut::cyr_stricmp("\x01", ""), 1);
}

TEST(StringCompare, TheFirstDifferenceDecides)
{
    EXPECT_EQ(ut::cyr_stricmp("b", "A"), 1);
    EXPECT_EQ(ut::cyr_stricmp("aBc", "abd"), -1);
    EXPECT_EQ(ut::cyr_stricmp("ad", "abc"), 1);
}

TEST(StringCompare, CyrillicComesAfterLatin)
{
    EXPECT_EQ(ut::cyr_stricmp("\xE0\xE1", "zz"), 1);
    EXPECT_EQ(ut::cyr_stricmp("zz", "\xC0"), -1);
}

TEST(StringSearch, FindsIgnoringCase)
{
    const char* haystack = "In the Beginning";
    EXPECT_EQ(ut::cyr_stristr(haystack, "BEGIN"), haystack + 7);
    const char* cyrillic = "\xC2\xED\xE0\xF7\xE0\xEB\xEE";
    EXPECT_EQ(ut::cyr_stristr(cyrillic, "\xCD\xC0\xD7"), cyrillic + 1);
}

TEST(StringSearch, GivesTheFirstOfSeveral)
{
    const char* haystack = "xabab";
    EXPECT_EQ(ut::cyr_stristr(haystack, "AB"), haystack + 1);
}

TEST(StringSearch, StartsAgainAfterAPartialMatch)
{
    const char* haystack = "aaab";
    EXPECT_EQ(ut::cyr_stristr(haystack, "aab"), haystack + 1);
}

TEST(StringSearch, AnEmptyNeedleStandsAtTheStart)
{
    const char* haystack = "In the Beginning";
    const char* nothing = "";
    EXPECT_EQ(ut::cyr_stristr(haystack, ""), haystack);
    EXPECT_EQ(ut::cyr_stristr(nothing, ""), nothing);
}

TEST(StringSearch, GivesNullWithoutAMatch)
{
    EXPECT_EQ(ut::cyr_stristr("", "a"), nullptr);
    EXPECT_EQ(ut::cyr_stristr("abc", "abcd"), nullptr);
    EXPECT_EQ(ut::cyr_stristr("abc", "x"), nullptr);
    EXPECT_EQ(ut::cyr_stristr("abab", "abb"), nullptr);
}

class ApplicationDirectory : public testing::Test
{
protected:
    void TearDown() override { ut::set_application_dirPath(m_before.c_str()); }
    const std::string m_before = ut::g_applicationDirPath;
};

TEST_F(ApplicationDirectory, IsEmptyAtFirst) { EXPECT_EQ(m_before, ""); }

TEST_F(ApplicationDirectory, IsWhatStandsBeforeTheLastSlash)
{
    ut::extract_application_dirPath("/opt/app/bin/prog");
    EXPECT_EQ(ut::g_applicationDirPath, "/opt/app/bin");
    ut::extract_application_dirPath("./prog");
    EXPECT_EQ(ut::g_applicationDirPath, ".");
    ut::extract_application_dirPath("/opt/app/");
    EXPECT_EQ(ut::g_applicationDirPath, "/opt/app");
}

TEST_F(ApplicationDirectory, OfAProgramInTheRootIsEmpty)
{
    ut::set_application_dirPath("old");
    ut::extract_application_dirPath("/prog");
    EXPECT_EQ(ut::g_applicationDirPath, "");
}

TEST_F(ApplicationDirectory, OfABareNameIsEmpty)
{
    ut::set_application_dirPath("old");
    ut::extract_application_dirPath("prog");
    EXPECT_EQ(ut::get_application_dirPath(), "");
}

TEST_F(ApplicationDirectory, IsSetUnchanged)
{
    ut::set_application_dirPath("/a/b/");
    EXPECT_EQ(ut::get_application_dirPath(), "/a/b/");
    EXPECT_EQ(ut::g_applicationDirPath, "/a/b/");
}

TEST_F(ApplicationDirectory, CanBeTakenFromItself)
{
    ut::set_application_dirPath("/opt/app/prog");
    ut::extract_application_dirPath(ut::g_applicationDirPath.c_str());
    EXPECT_EQ(ut::g_applicationDirPath, "/opt/app");
    ut::set_application_dirPath(ut::g_applicationDirPath.c_str());
    EXPECT_EQ(ut::g_applicationDirPath, "/opt/app");
}

} // namespace
