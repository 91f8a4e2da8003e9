#include "stored_markup.h"

#include "module_files.h"
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

TEST(PlainText, BracketWithoutATagStays)
{
    EXPECT_EQ(plain("1 < 2 > 0, <3, <"), "1 < 2 > 0, <3, <");
    EXPECT_EQ(plain("<b без край"), "<b без край");
    EXPECT_EQ(plain("<!-- без <b>край</b>"), "<!-- без край");
}

TEST(PlainText, TagsThatBeginAParagraphSeparateWords)
{
    EXPECT_EQ(plain("al<h2>be</h2>ga"), "al be ga");
    EXPECT_EQ(plain("al<BLOCKQUOTE>be</blockquote>ga<center/>de<dt>e</dt>"), "al be ga de e");
    EXPECT_EQ(plain("al<b>be</b>ga<h7>de<brr>"), "albegade");
}

TEST(PlainText, BracketInQuotesDoesNotEndATag)
{
    EXPECT_EQ(plain("<a href='x>y'>al</a> be"), "al be");
    EXPECT_EQ(plain("<font color=\"a'>b\" face='c\">d'>al</font>"), "al");
    EXPECT_EQ(plain("<b it's>al</b>"), "al");
    EXPECT_EQ(plain("<a href='x>al"), "<a href='x>al");
}

TEST(PlainText, CostsTimeInProportionToTheLength)
{
    const auto repeated = [](const std::string& piece) {
        std::string verse;
        while (verse.size() < 65000)
            verse += piece;
        return verse;
    };
    for (const char* piece : {"<", "<a ", "<a b='", "<!--", "<!", "</a", "&", "&a"})
        for (int i = 0; i < 3; ++i) // minutes if each piece were followed to the end
            EXPECT_FALSE(plainText(repeated(piece)).empty());
}

TEST(StoredMarkup, PiecesAreTheVerse)
{
    const std::string verse = "a &lt;<B x=1 Y='2>'>b</b><!-- c --><br/>&x <9<!d";
    using Kind = MarkupPiece::Kind;
    const std::vector<std::pair<Kind, std::string>> expected = {
        {Kind::text, "a "},        {Kind::character, "&lt;"}, {Kind::startTag, "<B x=1 Y='2>'>"},
        {Kind::text, "b"},         {Kind::endTag, "</b>"},    {Kind::declaration, "<!-- c -->"},
        {Kind::startTag, "<br/>"}, {Kind::ampersand, "&"},    {Kind::text, "x "},
        {Kind::bracket, "<"},      {Kind::text, "9"},         {Kind::openDeclaration, "<"},
        {Kind::text, "!d"}};
    std::vector<std::pair<Kind, std::string>> pieces;
    CStoredMarkup markup(verse);
    while (markup.next()) {
        pieces.emplace_back(markup.piece().kind, markup.piece().bytes);
        if (markup.piece().bytes == "<B x=1 Y='2>'>") {
            EXPECT_EQ(markup.piece().name, "b");
            EXPECT_EQ(markup.piece().attributes,
                      (std::vector<std::pair<std::string, std::string_view>>{{"x", "1"}, {"y", "2>"}}));
        }
    }
    EXPECT_EQ(pieces, expected);
}

TEST(PlainText, ReferencesBecomeCharacters)
{
    EXPECT_EQ(plain("&lt;a&gt; &amp;amp; &quot;&laquo;&#1041;&#x411;&mdash;"), "<a> &amp; \"\u00ABББ\u2014");
    EXPECT_EQ(plain("a&nbsp;b"), "a b");
    EXPECT_EQ(plain("caf&eacute; &thetasym;"), "caf\u00E9 \u03D1");
}

TEST(PlainText, AmpersandWithoutAReferenceStays)
{
    EXPECT_EQ(plain("a & b &; &nothing; &#; &#xZ; &#0; &#x110000; &#xD800; &lt"),
              "a & b &; &nothing; &#; &#xZ; &#0; &#x110000; &#xD800; &lt");
}

TEST(PlainText, IsOneSafeLine)
{
    EXPECT_EQ(plainText("  a\r\n\tb \x1B[31m c\x7F  "), "a b [31m c");
    EXPECT_EQ(plainText(std::string_view("a\0b", 3)), "a");
    EXPECT_EQ(plainText("\x98"), "\uFFFD");
}

TEST(BrokenLines, WrapAtSpaces)
{
    EXPECT_EQ(brokenLines("В начало Бог", 8), (std::vector<std::string>{"В начало", "Бог"}));
    EXPECT_EQ(brokenLines("В начало Бог", 12), (std::vector<std::string>{"В начало Бог"}));
    EXPECT_EQ(brokenLines("колесници", 4), (std::vector<std::string>{"коле", "сниц", "и"}));
    EXPECT_EQ(brokenLines("", 4), std::vector<std::string>{""});
}
