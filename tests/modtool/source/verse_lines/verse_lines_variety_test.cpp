// Verse lines as written by different programs (doc/formats/verse-lines.md).

#include "build_fixture.h"
#include "text_encoder.h"

namespace {

using build_test::Result;

class VerseLinesVariety : public build_test::Building
{
protected:
    static std::string utf16(std::u16string_view text, bool bigEndian)
    {
        std::string bytes;
        for (const char16_t unit : text) {
            const char low = static_cast<char>(unit & 0xFF);
            const char high = static_cast<char>(unit >> 8);
            bytes += bigEndian ? high : low;
            bytes += bigEndian ? low : high;
        }
        return bytes;
    }
};

TEST_F(VerseLinesVariety, TrailingTabsSpacesAndEmptyRowsAreIgnored)
{
    ASSERT_EQ(build("Gen\t1\t1\tБог \t\t\r\n\t\t\t\r\n   \r\nGen\t1\t2\t  рече\u00A0\n\t\n").code, 0);
    EXPECT_EQ(verse(0, 0, 0), "Бог");
    EXPECT_EQ(verse(0, 0, 1), "рече");
    EXPECT_EQ(made("BibleStructure.csv"), "1 2\n");
}

TEST_F(VerseLinesVariety, CarriageReturnsAloneEndLines)
{
    ASSERT_EQ(build("Gen\t1\t1\tБог\rGen\t1\t2\tрече\r").code, 0);
    EXPECT_EQ(verse(0, 0, 0), "Бог");
    EXPECT_EQ(verse(0, 0, 1), "рече");
}

TEST_F(VerseLinesVariety, Utf16OfBothOrdersIsRead)
{
    for (const bool bigEndian : {false, true}) {
        ASSERT_EQ(build(utf16(u"\uFEFFGen\t1\t1\tБог\r\nGen\t1\t2\tрече\r\n", bigEndian)).code, 0);
        EXPECT_EQ(verse(0, 0, 1), "рече");
    }
}

TEST_F(VerseLinesVariety, Windows1251IsReadWhereItIsGivenAndRefusedOtherwise)
{
    const std::string lines = "Gen\t1\t1\t\xC1\xEE\xE3\n";
    EXPECT_EQ(refusal(lines), "kedrin-module: " + sourceName() + ":1: not valid UTF-8\n");
    ASSERT_EQ(build(lines, {"--encoding", "windows-1251"}).code, 0);
    EXPECT_EQ(verse(0, 0, 0), "Бог");
}

TEST_F(VerseLinesVariety, RangesPartsAndVerseZeroAreRefusedWithTheirLine)
{
    for (const char* number : {"1-2", "1a", "0", "1,2"})
        EXPECT_EQ(refusal("Gen\t1\t3\tа\nGen\t1\t" + std::string(number) + "\tб\n"),
                  "kedrin-module: " + sourceName() + ":2: \"" + number +
                      "\" is not a verse number from 1 to 65534\n");
}

TEST_F(VerseLinesVariety, HeaderBehindAMarkIsRead)
{
    ASSERT_EQ(build("\xEF\xBB\xBF# title: Мой\r\n# remark\r\n\r\nGen\t1\t1\tБог\r\n").code, 0);
    EXPECT_EQ(Kedrin::ModTool::toUtf8(made("_Info_.txt")).substr(0, 7), "Мой\n");
}

TEST_F(VerseLinesVariety, MarkupIsTextAndIsStoredEscaped)
{
    ASSERT_EQ(build("Gen\t1\t1\t<i>Бог</i> & \\nd рече\\nd*\n").code, 0);
    EXPECT_EQ(verse(0, 0, 0), "&lt;i&gt;Бог&lt;/i&gt; &amp; \\nd рече\\nd*");
}

TEST_F(VerseLinesVariety, MissingVersesChaptersAndAnyOrderAreCounted)
{
    const Result result = build("Exod\t1\t3\tв\nGen\t3\t1\tд\nGen\t1\t2\tб\nExod\t1\t1\tа\n");
    ASSERT_EQ(result.code, 0);
    EXPECT_EQ(made("BibleStructure.csv"), "1 3\n3 2 1 1\n");
    EXPECT_NE(result.out.find("without text  2 verses inside chapters, first at Exod 1:2\n"
                              "without text  1 chapter inside a book, kept as one verse, first at Gen 2\n"),
              std::string::npos)
        << result.out;
}

} // namespace
