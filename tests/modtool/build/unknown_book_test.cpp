// Books of a source that are not in the global numbering: known ones are left out, unknown ones only where asked.

#include "build_fixture.h"

namespace {

using build_test::Result;

class UnknownBooks : public build_test::Building
{
};

TEST_F(UnknownBooks, AreRefusedAllAtOnceWithNamesLikeThem)
{
    EXPECT_EQ(refusal("Gen\t1\t1\ta\nGenn\t1\t1\ta\nExodd\t1\t1\ta\nExodd\t1\t2\ta\nXyzzy\t1\t1\ta\n"),
              "kedrin-module: " + sourceName() + ":2: \"Genn\" is not an OSIS book id (did you mean Gen?)\n" +
                  sourceName() + ":3: \"Exodd\" is not an OSIS book id (did you mean Exod?)\n" +
                  sourceName() + ":5: \"Xyzzy\" is not an OSIS book id\n");
    EXPECT_EQ(build_test::namesIn(m_folder.path().string()), std::vector<std::string>{"Made.vpl"});
}

TEST_F(UnknownBooks, AreLeftOutWhereAskedAndSaidFirst)
{
    const Result result = build("Gen\t1\t1\ta\nXyzzy\t1\t1\ta b\n", {"--skip-unknown"});
    EXPECT_EQ(result.code, 0);
    EXPECT_TRUE(result.out.starts_with("left out      Xyzzy: 1 verse, not in the global numbering\n"
                                       "module        " +
                                       made() + '\n'))
        << result.out;
}

TEST_F(UnknownBooks, KnownOnesOutsideTheGlobalNumberingAreLeftOutAndSaidFirst)
{
    for (const std::string osis : {"PrMan", "4Macc", "EsthGr", "AddPs", "Odes"}) {
        const Result result = build("Gen\t1\t1\ta\n" + osis + "\t1\t1\ta\n");
        EXPECT_EQ(result.code, 0) << result.err;
        EXPECT_TRUE(result.out.starts_with("left out      " + osis + ": 1 verse")) << result.out;
    }
}

/// A text of some other format in the place of the verse lines, with one book that is known and one that is not.
struct Format
{
    std::string name;
    std::string text;
    std::string refusal; ///< without the file
};

class UnknownBooksOf : public build_test::Building, public testing::WithParamInterface<Format>
{
};

TEST_P(UnknownBooksOf, FormatAreRefusedOrLeftOut)
{
    const Format& format = GetParam();
    EXPECT_EQ(refusal(format.text), "kedrin-module: " + sourceName() + format.refusal + '\n');
    const Result result = build(format.text, {"--skip-unknown"});
    EXPECT_EQ(result.code, 0) << result.err;
    EXPECT_TRUE(result.out.starts_with("left out      Genezis: 1 verse, not in the global numbering\nmodule"))
        << result.out;
    EXPECT_EQ(verse(0, 0, 0), "Бог");
    EXPECT_EQ(made("BibleStructure.csv"), "1 1\n");
}

INSTANTIATE_TEST_SUITE_P(
    All, UnknownBooksOf,
    testing::Values(
        Format{"OpenSong",
               "<bible><b n='Exodus'><c n='1'><v n='1'>Бог</v></c></b>\n"
               "<b n='Genezis'><c n='1'><v n='1'>а</v></c></b></bible>",
               ":2: \"Genezis\" is not a known book name: write an English or Bulgarian one in n, such as "
               "Genesis (did you mean Gen?)"},
        Format{
            "Beblia",
            "<bible><book number='2'><chapter number='1'><verse number='1'>Бог</verse></chapter></book>\n"
            "<book name='Genezis'><chapter number='1'><verse number='1'>а</verse></chapter></book></bible>",
            ":2: \"\" is not a book number: write one in number, such as 1 for Genesis (did you mean Gen?)"},
        Format{
            "Zefania",
            "<XMLBIBLE><BIBLEBOOK bnumber='2'><CHAPTER cnumber='1'><VERS "
            "vnumber='1'>Бог</VERS></CHAPTER></BIBLEBOOK>\n"
            "<BIBLEBOOK bname='Genezis'><CHAPTER cnumber='1'><VERS vnumber='1'>а</VERS></CHAPTER></BIBLEBOOK>"
            "</XMLBIBLE>",
            ":2: \"\" is not a book number, and \"Genezis\" is not a known book name: write the number in "
            "bnumber, such as 1 for Genesis (did you mean Gen?)"},
        Format{"Usfm", "\\id EXO\n\\c 1\n\\p\n\\v 1 Бог\n\\id Genezis\n\\c 1\n\\p\n\\v 1 а\n",
               ":5: \"Genezis\" is not a book code: write one after \\id, such as GEN (did you mean Gen?)"},
        Format{"Usfx",
               "<usfx><book id='EXO'><c id='1'/><v id='1'/>Бог<ve/></book>\n"
               "<book id='Genezis'><c id='1'/><v id='1'/>а<ve/></book></usfx>",
               ":2: \"Genezis\" is not a book code: write one in id, such as GEN (did you mean Gen?)"},
        Format{"Ces",
               "<cesDoc><div id='b.EXO' type='book'><div id='b.EXO.1' type='chapter'><seg id='b.EXO.1.1' "
               "type='verse'>Бог</seg></div></div>\n<div id='b.Genezis' type='book'><div id='b.1' "
               "type='chapter'>"
               "<seg id='b.1.1' type='verse'>а</seg></div></div></cesDoc>",
               ":2: \"Genezis\" is not a book code: write one in id, such as GEN (did you mean Gen?)"},
        Format{"Json",
               "[{\"book\": 2, \"chapter\": 1, \"verse\": 1, \"text\": \"Бог\"},\n"
               "{\"book\": \"Genezis\", \"chapter\": 1, \"verse\": 1, \"text\": \"а\"}]",
               ":2: \"Genezis\" is not a known book: write its number from 1 to 66, its English name or its "
               "OSIS id, such as Gen (did you mean Gen?)"},
        Format{"Table", "book,chapter,verse,text\nExodus,1,1,Бог\nGenezis,1,1,а\n",
               ": 1 line cannot be read:\n  line 3: \"Genezis\" is not a known book (did you mean Gen?)"},
        Format{"Lines", "Exodus 1:1 Бог\nGenezis 1:1 а\n",
               ": 1 line cannot be read:\n  line 2: \"Genezis\" is not a known book (did you mean Gen?)"}),
    [](const auto& parameter) { return parameter.param.name; });

} // namespace
