// The messages for books, chapters and verses that the global numbering lacks.

#include "build_fixture.h"

#include <sstream>

namespace {

using build_test::Result;

class OddBooks : public build_test::Building
{
protected:
    /// Builds a source in any format with a verse of Genesis before the given content.
    Result buildSource(const std::string& name, const std::string& content,
                       const std::vector<std::string>& options = {}) const
    {
        std::vector<std::string> arguments{"build", m_folder.write(name, content), made()};
        arguments.insert(arguments.end(), options.begin(), options.end());
        return build_test::run(arguments);
    }

    static std::string leftOutLines(const Result& result)
    {
        std::istringstream report(result.out);
        std::string lines;
        for (std::string line; std::getline(report, line);)
            if (line.starts_with("left out"))
                lines += line + '\n';
        return lines;
    }

    static std::string lineOf(const std::string& book, const std::string& verses)
    {
        return "left out      " + book + ": " + verses + ", not in the global numbering\n";
    }
};

TEST_F(OddBooks, WithoutVersesAreNamedByTheirKind)
{
    const Result result =
        buildSource("a.usfm", "\\id FRT\n\\p Words\n\\id GEN\n\\c 1\n\\v 1 а\n\\id GLO\n\\id XXA\n"
                              "\\id XXB\n\\c 1\n\\v 1 б\n");
    ASSERT_EQ(result.code, 0) << result.err;
    EXPECT_EQ(leftOutLines(result), lineOf("XXB", "1 verse") +
                                        "left out      FRT: front matter, without verses\n"
                                        "left out      GLO: glossary, without verses\n"
                                        "left out      XXA: a book without verses\n"
                                        "left out      1 text outside the verses, first at line 2\n");
}

TEST_F(OddBooks, OfVerseLinesAreLeftOutAndCounted)
{
    const Result result =
        build("Gen\t1\t1\tа\nPrMan\t1\t1\tб\nPrMan\t1\t2\tв\nAddPs\t1\t1\tг\nEsthGr\t1\t1\tд\n"
              "AddDan\t1\t1\tе\nSus\t1\t1\tж\nEsth\t1\t1\tз\n");
    ASSERT_EQ(result.code, 0) << result.err;
    EXPECT_EQ(leftOutLines(result), lineOf("PrMan", "2 verses") + lineOf("AddPs", "1 verse") +
                                        lineOf("EsthGr", "1 verse") + lineOf("AddDan", "1 verse") +
                                        lineOf("Sus", "1 verse"));
    EXPECT_EQ(made("BibleStructure.csv"), "1 1\n1 1\n");
}

TEST_F(OddBooks, OfUsfmAreLeftOutAndCounted)
{
    std::string text;
    for (const char* code : {"GEN", "MAN", "PS2", "ESG", "EST", "S3Y", "SUS", "BEL", "DAG", "DAN", "4MA",
                             "EZA", "ODA", "PSS", "LAO", "XXA"})
        text += std::string("\\id ") + code + "\n\\c 1\n\\p\n\\v 1 а\n";
    const Result result = buildSource("a.usfm", text);
    ASSERT_EQ(result.code, 0) << result.err;
    std::string expected;
    for (const char* book : {"PrMan", "AddPs", "EsthGr", "PrAzar", "Sus", "Bel", "DanGr", "4Macc", "4Ezra",
                             "Odes", "PssSol", "EpLao", "XXA"})
        expected += lineOf(book, "1 verse");
    EXPECT_EQ(leftOutLines(result), expected);
}

TEST_F(OddBooks, OfZefaniaXmlAreLeftOutAndCounted)
{
    std::string text = "<XMLBIBLE>";
    for (const char* number : {"1", "74", "75", "76", "78", "82", "120"})
        text += std::string("<BIBLEBOOK bnumber='") + number +
                "'><CHAPTER cnumber='1'><VERS vnumber='1'>а</VERS></CHAPTER></BIBLEBOOK>";
    const Result result = buildSource("a.xml", text + "</XMLBIBLE>");
    ASSERT_EQ(result.code, 0) << result.err;
    EXPECT_EQ(leftOutLines(result), lineOf("AddDan", "1 verse") + lineOf("AddEsth", "1 verse") +
                                        lineOf("PrMan", "1 verse") + lineOf("4Macc", "1 verse") +
                                        lineOf("Odes", "1 verse") + lineOf("Book120", "1 verse"));
}

TEST_F(OddBooks, OfBebliaXmlAreLeftOutAndCounted)
{
    std::string text = "<bible>";
    for (const char* number : {"1", "66", "67", "120"})
        text += std::string("<book number='") + number +
                "'><chapter number='1'><verse number='1'>а</verse></chapter></book>";
    const Result result = buildSource("a.xml", text + "</bible>");
    ASSERT_EQ(result.code, 0) << result.err;
    EXPECT_EQ(leftOutLines(result), lineOf("Book67", "1 verse") + lineOf("Book120", "1 verse"));
}

TEST_F(OddBooks, OfOpenSongAreLeftOutAndCounted)
{
    std::string text = "<bible>";
    for (const char* name : {"Genesis", "PrMan", "4MA", "EsthGr", "Esther", "XXA"})
        text += std::string("<b n='") + name + "'><c n='1'>" +
                (name == std::string("XXA") ? "" : "<v n='1'>а</v>") + "</c></b>";
    const Result result = buildSource("a", text + "</bible>");
    ASSERT_EQ(result.code, 0) << result.err;
    EXPECT_EQ(leftOutLines(result), lineOf("PrMan", "1 verse") + lineOf("4Macc", "1 verse") +
                                        lineOf("EsthGr", "1 verse") +
                                        "left out      XXA: a book without verses\n");
}

TEST_F(OddBooks, OfCesAreLeftOutAndCounted)
{
    std::string text = "<cesDoc>";
    for (const std::string code : {"GEN", "MAN", "ESG", "EST", "XXA"})
        text += "<div type='book' id='b." + code + "'><div type='chapter' id='b." + code + ".1'><seg id='b." +
                code + ".1.1'>а</seg></div></div>";
    const Result result = buildSource("a.xml", text + "</cesDoc>");
    ASSERT_EQ(result.code, 0) << result.err;
    EXPECT_EQ(leftOutLines(result),
              lineOf("PrMan", "1 verse") + lineOf("EsthGr", "1 verse") + lineOf("XXA", "1 verse"));
}

TEST_F(OddBooks, OfUsxAreLeftOutAndCounted)
{
    std::string text = "<usx>";
    for (const char* code : {"FRT", "GEN", "MAN", "ESG", "EST", "XXA"})
        text += std::string("<book code='") + code + "'/><chapter number='1'/>" +
                (code == std::string("FRT") ? "" : "<verse number='1'/>а");
    const Result result = buildSource("a.usx", text + "</usx>");
    ASSERT_EQ(result.code, 0) << result.err;
    EXPECT_EQ(leftOutLines(result), lineOf("PrMan", "1 verse") + lineOf("EsthGr", "1 verse") +
                                        lineOf("XXA", "1 verse") +
                                        "left out      FRT: front matter, without verses\n");
}

TEST_F(OddBooks, OfUsfxAreLeftOutAndCounted)
{
    std::string text = "<usfx>";
    for (const char* code : {"FRT", "GEN", "MAN", "ESG", "EST", "XXA"})
        text += std::string("<book id='") + code + "'><c id='1'/>" +
                (code == std::string("FRT") ? "" : "<v id='1'/>а") + "</book>";
    const Result result = buildSource("a.xml", text + "</usfx>");
    ASSERT_EQ(result.code, 0) << result.err;
    EXPECT_EQ(leftOutLines(result), lineOf("PrMan", "1 verse") + lineOf("EsthGr", "1 verse") +
                                        lineOf("XXA", "1 verse") +
                                        "left out      FRT: front matter, without verses\n");
}

TEST_F(OddBooks, OfOsisAreLeftOutAndCounted)
{
    std::string text = "<osis><osisText>";
    for (const char* book : {"Gen", "PrMan", "AddPs", "AddEsth", "PrAzar", "1En"})
        text += "<verse osisID='" + std::string(book) + ".1.1'>а</verse>";
    const Result result = buildSource("a.xml", text + "</osisText></osis>");
    ASSERT_EQ(result.code, 0) << result.err;
    std::string expected;
    for (const char* book : {"PrMan", "AddPs", "AddEsth", "PrAzar", "1En"})
        expected += lineOf(book, "1 verse");
    EXPECT_EQ(leftOutLines(result), expected);
}

TEST_F(OddBooks, GreekEstherAloneIsEsther)
{
    const Result result = buildSource("a.usfm", "\\id ESG\n\\c 1\n\\v 1 а\n\\c 11\n\\v 1 б");
    ASSERT_EQ(result.code, 0) << result.err;
    EXPECT_EQ(reported(result, "interpreted"),
              "   1 Greek Esther or Daniel as the book itself, first at Esth");
    EXPECT_EQ(reported(result, "contains"), "      1 book, 11 chapters, 11 verses");
    EXPECT_EQ(reported(result, "without text"),
              "  9 chapters inside books, each kept as one verse, first at Esth 2");
}

TEST_F(OddBooks, Psalm151OfTheSynodalCountIsAChapterWithoutAPosition)
{
    std::string text = "Ps\t150\t1\tа\n";
    for (int verse = 1; verse <= 7; ++verse)
        text += "Ps\t151\t" + std::to_string(verse) + "\tб\n";
    const Result result = build(text, {"--versification", "Synodal"});
    ASSERT_EQ(result.code, 0) << result.err;
    EXPECT_EQ(reported(result, "contains"), "      1 book, 151 chapters, 157 verses");
    EXPECT_NE(result.out.find(" have no position in the global numbering\n"), std::string::npos)
        << result.out;
    EXPECT_EQ(verse(0, 150, 6), "б");
}

TEST_F(OddBooks, VersesBeyondTheGlobalNumberingStayAndAreCounted)
{
    const Result result =
        build("Jude\t1\t25\tа\nJude\t1\t26\tб\nJude\t2\t1\tв\n", {"--versification", "KJV"});
    ASSERT_EQ(result.code, 0) << result.err;
    EXPECT_EQ(verse(0, 0, 25), "б");
    EXPECT_EQ(verse(0, 1, 0), "в");
    EXPECT_NE(result.out.find("25 of 27 verses map correctly both ways"), std::string::npos) << result.out;
    EXPECT_NE(result.out.find("              2 verses have no position in the global numbering\n"),
              std::string::npos)
        << result.out;
}

} // namespace
