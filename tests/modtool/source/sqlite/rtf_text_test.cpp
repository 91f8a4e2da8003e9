// Texts in RTF in the tables of verses.

#include "sqlite_file.h"

using namespace Kedrin::ModTool;
using test_support::linesOf;

namespace sqlite_test {

namespace {

const std::string fromBible = "source        SQLite, verses of the table \"Bible\"\n";

class RtfText : public SqliteReader
{
protected:
    /// A Bible whose verses, from Gen 1:1, have these texts.
    SourceBible verses(const std::vector<std::string>& texts) const
    {
        std::string sql = "CREATE TABLE Bible(Book INT, Chapter INT, Verse INT, Scripture TEXT);";
        for (std::size_t i = 0; i < texts.size(); ++i)
            sql += "INSERT INTO Bible VALUES(1, 1, " + std::to_string(i + 1) + ", '" + texts[i] + "');";
        return read(sql);
    }

    std::string textOf(const std::string& rtf) const { return linesOf(verses({rtf})); }
};

/// Text, as programs without Unicode write it.
std::string escaped(const std::string& cp1251)
{
    static constexpr char hex[] = "0123456789abcdef";
    std::string rtf;
    for (const char c : cp1251)
        if (const auto byte = static_cast<unsigned char>(c); byte < 0x80)
            rtf += c;
        else
            rtf += {'\\', '\'', '\'', hex[byte / 16], hex[byte % 16]}; // the sign is doubled in SQL
    return rtf;
}

// "В начало Бог създаде небето и земята." in Windows-1251
const std::string inTheBeginning = "\xC2 \xED\xE0\xF7\xE0\xEB\xEE \xC1\xEE\xE3 \xF1\xFA\xE7\xE4\xE0\xE4\xE5 "
                                   "\xED\xE5\xE1\xE5\xF2\xEE \xE8 \xE7\xE5\xEC\xFF\xF2\xE0.";

} // namespace

TEST_F(RtfText, ControlsAreNoText)
{
    const SourceBible bible = verses(
        {"\\cf6 Let \\i there\\i0  be {\\b\\fs24 light}:\\par and\\line there\\tab was\r\n!", "without any"});
    EXPECT_EQ(linesOf(bible), "Gen 1:1 Let there be light: and there was!\nGen 1:2 without any\n");
    EXPECT_EQ(bible.findings.text(), fromBible + "texts         in RTF, windows-1252\n");
}

TEST_F(RtfText, BytesAboveAsciiAreOfWindows1251IfTheyAreCyrillic)
{
    const SourceBible bible = verses({escaped(inTheBeginning), "\\par"});
    EXPECT_EQ(linesOf(bible), "Gen 1:1 В начало Бог създаде небето и земята.\nGen 1:2\n");
    EXPECT_EQ(bible.findings.text(), fromBible + "texts         in RTF, windows-1251\n");
    EXPECT_EQ(textOf("Se\\''f1or, el pan de cada d\\''eda"), "Gen 1:1 Señor, el pan de cada día\n");
}

TEST_F(RtfText, CharactersByTheirNumbers)
{
    EXPECT_EQ(
        textOf(
            "\\u1041?\\u1086?\\u1075? \\uc0\\u1048 \\uc2\\u1080\\''c8?\\emdash x\\~y\\{\\\\\\}\\ldblquote z"),
        "Gen 1:1 Бог Ии\u2014x\u00A0y{\\}\u201Cz\n");
    EXPECT_EQ(textOf("\\u-10179?\\u-8704?x\\u1041я"),
              "Gen 1:1 \uFFFD\uFFFDxБя\n"); // halves of a pair; no replacement
}

TEST_F(RtfText, NotesNumbersAndHiddenTextAreLeftOut)
{
    const SourceBible bible =
        verses({"{\\super 1}In{\\cf11\\super H7225} the{\\footnote Or {\\b at}}, beginning\\super "
                "[2]\\nosupersub  of\\v  hidden\\v0  all{\\super th}"});
    EXPECT_EQ(linesOf(bible), "Gen 1:1 In the, beginning of allth\n");
    EXPECT_EQ(bible.findings.text(),
              fromBible + "texts         in RTF, windows-1252\n"
                          "left out      1 note, first at Gen 1:1\n"
                          "left out      2 chapter or verse numbers within the text, first at Gen 1:1\n"
                          "left out      1 text outside the verses, first at Gen 1:1\n");
    EXPECT_EQ(bible.findings.letters(ReaderRule::attribute), 5u);
    EXPECT_EQ(bible.findings.letters(ReaderRule::note), 4u);
    EXPECT_EQ(bible.findings.letters(ReaderRule::outside), 6u);
}

TEST_F(RtfText, WholeDocuments)
{
    EXPECT_EQ(
        textOf("{\\rtf1\\ansi{\\fonttbl{\\f0 Arial;}}{\\*\\generator X 1;}{\\colortbl;\\red1;}\\f0 In the "
               "beginning\\par}"),
        "Gen 1:1 In the beginning\n");
}

TEST_F(RtfText, DamagedControlsLoseNoLetters)
{
    for (const std::string damaged :
         {"\\par a\\", "\\par a}}}b", "{{{\\par a", "\\par a\\''x", "\\par \\''4", "\\*\\par a",
          "\\fonttbl\\par a", "\\par\\9a\\я", "\\u99999999999 a\\par", "\\v\\par a"})
        EXPECT_NO_THROW(verses({damaged})) << damaged; // the letters are compared with those of the source
    EXPECT_EQ(textOf("\\par a\\9b\\я}c{d\\"), "Gen 1:1 a\\9b\\яcd\\\n");
}

TEST_F(RtfText, BackslashesAreNoRtf)
{
    const SourceBible bible = verses({"a \\ b \\\\ c\\"});
    EXPECT_EQ(linesOf(bible), "Gen 1:1 a \\ b \\\\ c\\\n");
    EXPECT_EQ(bible.findings.text(), fromBible);
}

TEST_F(RtfText, DescriptionOfTheBible)
{
    const SourceBible bible = read("CREATE TABLE Details(Description TEXT, Comments TEXT);"
                                   "INSERT INTO Details VALUES('" +
                                   escaped(inTheBeginning) +
                                   "', '{\\rtf1 Free\\par to all}');"
                                   "CREATE TABLE Bible(Book INT, Chapter INT, Verse INT, Scripture TEXT);"
                                   "INSERT INTO Bible VALUES(1, 1, 1, 'a')");
    EXPECT_EQ(bible.info.fullTitle, "В начало Бог създаде небето и земята.");
    EXPECT_EQ(bible.info.copyright, std::vector<std::string>{"Free to all"});
}

} // namespace sqlite_test
