// Sources that are made to do harm: each format's reader ends with one error, or takes what is harmless for text, in
// bounded memory and time.

#include "hostile_source.h"

namespace process_test {

TEST_P(HostileSource, EndsWithOneErrorOrIsText)
{
    beginWithTheOldModule();
    const std::string file = m_folder.write("hostile/source", GetParam().content());
    const std::vector<std::string> around = build_test::namesIn(m_folder.path().string());
    const ForkedEnd end = runBounded(buildOf(file));
    EXPECT_EQ(end.standardError, said(GetParam().said, file));
    EXPECT_EQ(end.exitCode, GetParam().said.empty() ? 0 : 1) << "signal " << end.signal;
    EXPECT_EQ(build_test::filesOf(made()) == oldFiles(), !GetParam().said.empty());
    EXPECT_EQ(build_test::namesIn(modules()), (std::vector<std::string>{"BibleStructure.txt", "made"}));
    EXPECT_EQ(build_test::namesIn(m_folder.path().string()), around);
}

namespace {

std::string osis(const std::string& content) { return "<osis><osisText>" + content + "</osisText></osis>"; }
std::string osisVerse(const std::string& id, const std::string& text)
{
    return osis("<verse osisID=\"" + id + "\">" + text + "</verse>");
}
std::string zefania(const std::string& content) { return "<XMLBIBLE>" + content + "</XMLBIBLE>"; }
std::string zefaniaVerse(const std::string& number, const std::string& text)
{
    return zefania("<BIBLEBOOK bnumber=\"1\"><CHAPTER cnumber=\"1\"><VERS vnumber=\"" + number + "\">" +
                   text + "</VERS></CHAPTER></BIBLEBOOK>");
}
std::string beblia(const std::string& content) { return "<bible>" + content + "</bible>"; }
std::string bebliaVerse(const std::string& number, const std::string& text)
{
    return beblia("<book number=\"1\"><chapter number=\"1\"><verse number=\"" + number + "\">" + text +
                  "</verse></chapter></book>");
}
std::string openSong(const std::string& content)
{
    return "<bible><b n=\"Genesis\"><c n=\"1\">" + content + "</c></b></bible>";
}
std::string openSongVerse(const std::string& number, const std::string& text)
{
    return openSong("<v n=\"" + number + "\">" + text + "</v>");
}
std::string ces(const std::string& content)
{
    return "<cesDoc><div id='b.GEN' type='book'>" + content + "</div></cesDoc>";
}
std::string cesVerse(const std::string& number, const std::string& text)
{
    return ces("<div id='b.GEN.1' type='chapter'><seg id='b.GEN.1." + number + "'>" + text + "</seg></div>");
}
std::string usfm(const std::string& content) { return "\\id GEN\n\\c 1\n" + content; }
std::string usfmVerse(const std::string& number, const std::string& text)
{
    return usfm("\\v " + number + ' ' + text);
}

const std::vector<Hostile> nesting{
    {"DeepNestingInOsis", [] { return osis(repeated("<a>")); }, tooDeep},
    {"DeepNestingInZefania", [] { return zefania(repeated("<a>")); }, tooDeep},
    {"DeepNestingInBeblia", [] { return beblia(repeated("<a>")); }, tooDeep},
    {"DeepNestingInOpenSong", [] { return openSong(repeated("<a>")); }, tooDeep},
    {"DeepNestingInCes", [] { return ces(repeated("<div>")); }, tooDeep},
    {"DeepNestingInUsfm", [] { return usfmVerse("1", "a" + repeated("\\add ")); }, ""},
};

const std::vector<Hostile> attributes{
    {"HugeAttributeInOsis", [] { return osis("<a b=\"" + repeated("x") + "\"/>"); }, tooLong},
    {"HugeAttributeInZefania", [] { return zefania("<a b=\"" + repeated("x") + "\"/>"); }, tooLong},
    {"HugeAttributeInUsfm", [] { return usfmVerse("1", "\\w a|lemma=\"" + repeated("x") + "\"\\w*"); }, ""},
    {"ManyAttributesInOsis", [] { return osis("<a " + numbered("b", "='' ", 500000) + "/>"); }, tooManyNames},
    {"ManyAttributesInZefania", [] { return zefania("<a " + numbered("b", "='' ", 500000) + "/>"); },
     tooManyNames},
};

const std::vector<Hostile> entities{
    {"EntityBombInOsis", [] { return bomb("osis") + osisVerse("Gen.1.1", "&j;"); }, declares},
    {"EntityBombInZefania", [] { return bomb("XMLBIBLE") + zefaniaVerse("1", "&j;"); }, declares},
    {"EntityBombInBeblia", [] { return bomb("bible") + bebliaVerse("1", "&j;"); }, declares},
    {"EntityBombInOpenSong", [] { return bomb("bible") + openSongVerse("1", "&j;"); }, declares},
    {"EntityBombInCes", [] { return bomb("cesDoc") + cesVerse("1", "&j;"); }, declares},
    {"EntityBombInUsfm", [] { return usfmVerse("1", bomb("a") + "&j;"); }, ""},
};

const std::vector<Hostile> numbers{
    {"NumberOfFourBillionInOsis", [] { return osisVerse("Gen.1.4294967297", "a"); },
     "@:1: \"Gen.1.4294967297\" is not a verse reference, such as Gen.1.1"},
    {"NumberOfFourBillionInZefania", [] { return zefaniaVerse("4294967297", "a"); }, ""},
    {"NumberOfFourBillionInBeblia", [] { return bebliaVerse("4294967297", "a"); }, ""},
    {"NumberOfFourBillionInOpenSong", [] { return openSongVerse("4294967297", "a"); }, ""},
    {"NumberOfFourBillionInCes", [] { return cesVerse("4294967297", "a"); }, ""},
    {"NumberOfFourBillionInUsfm", [] { return usfmVerse("4294967297", "a"); }, ""},
    {"LastNumberInOsis", [] { return osisVerse("Gen.65534.65534", "a"); }, "Gen 65534:2" + manyVerses},
    {"RangesToTheLastNumberInOsis",
     [] {
         return osis(
             "<verse osisID=\"Gen.1.1-Gen.1.65534\">a</verse><verse osisID=\"Gen.2.65534\">a</verse>");
     },
     "Gen 2:65534" + manyVerses},
    {"LastNumberInZefania", [] { return zefaniaVerse("65534", "a"); }, ""},
    {"LastNumberInBeblia",
     [] {
         return beblia(
             "<book number=\"1\"><chapter number=\"65534\"><verse number=\"65534\">a</verse></chapter>"
             "</book>");
     },
     "Gen 65534:2" + manyVerses},
    {"LastNumberInUsfm", [] { return usfm("\\c 65534\n\\v 65534 a"); }, "Gen 65534:2" + manyVerses},
};

const std::vector<Hostile> lengths{
    {"EndlessVerseInOsis", [] { return osisVerse("Gen.1.1", repeated("<a>a</a>", 65u << 20)); },
     "@: is larger than 64 MiB"},
    {"EndlessVerseInZefania", [] { return zefaniaVerse("1", repeated("<BR/>a&lt;", 40u << 20)); },
     "Gen 1:1: the verse has 25165823 bytes; the limit is 65535"},
    {"EndlessVerseInBeblia", [] { return bebliaVerse("1", repeated("a")); }, tooLong},
    {"EndlessVerseInOpenSong", [] { return openSongVerse("1", repeated("a")); }, tooLong},
    {"EndlessVerseInCes", [] { return cesVerse("1", repeated("a")); }, tooLong},
    {"EmptyVersesInCes", [] { return ces(repeated("<seg id='v.1'/>")); }, "the source contains no text"},
    {"EndlessVerseInUsfm", [] { return usfmVerse("1", repeated("a")); }, longVerse},
    {"EmptyVersesInOsis", [] { return osis(repeated("<verse osisID=\"Gen.1.1\"/>")); },
     "the source contains no text"},
    {"EmptyVersesBehindALongTitleInOsis",
     [] {
         return osis("<verse osisID=\"Gen.1.1\"/><title canonical=\"true\">" + repeated("a ", 8u << 20) +
                     "</title>" + repeated("<verse osisID=\"Gen.1.1\"/>", 8u << 20));
     },
     "Gen 1:1: the verse has 8388607 bytes; the limit is 65535"},
    {"EmptyVersesInUsfm", [] { return usfm(repeated("\\v 1 ")); }, "the source contains no text"},
    {"EmptyVersesInZefania",
     [] {
         return zefania("<BIBLEBOOK bnumber=\"1\"><CHAPTER cnumber=\"1\">" +
                        repeated("<VERS vnumber=\"1\"/>") + "</CHAPTER></BIBLEBOOK>");
     },
     "the source contains no text"},
    {"EmptyVersesInBeblia",
     [] {
         return beblia("<book number=\"1\"><chapter number=\"1\">" + repeated("<verse number=\"1\"/>") +
                       "</chapter></book>");
     },
     "the source contains no text"},
    {"EmptyVersesInOpenSong", [] { return openSong(repeated("<v n=\"1\"/>")); },
     "the source contains no text"},
    {"CommentsInOsis", [] { return osis(repeated("<!---->")); }, "@: contains no verses"},
    {"InstructionsInZefania", [] { return repeated("<?a?>") + zefania(""); }, "@: contains no verses"},
    {"NamesInOsis", [] { return osis(numbered("<a", "/>", 1000000)); }, tooManyNames},
    {"NamesInZefania", [] { return zefania(numbered("<a", ":b/>", 1000000)); }, tooManyNames},
};

const std::vector<Hostile> paths{
    {"PathAsBookInOsis", [] { return osisVerse("../../../tmp/x.1.1", "a"); },
     "@:1: \"../../../tmp/x.1.1\" is not a verse reference, such as Gen.1.1"},
    {"PathAsBookOfOsis",
     [] { return osis("<div type=\"book\" osisID=\"../../x\"><verse osisID=\"/x.1.1\">a</verse></div>"); },
     "@:1: \"/x\" is not an OSIS book id"},
    {"PathAsBookInZefania",
     [] {
         return zefania("<BIBLEBOOK bnumber=\"../../x\" bname=\"../y\"><CHAPTER cnumber=\"1\"><VERS "
                        "vnumber=\"1\">a</VERS>"
                        "</CHAPTER></BIBLEBOOK>");
     },
     "@:1: \"../../x\" is not a book number, and \"../y\" is not a known book name: write the "
     "number in bnumber, such as 1 for Genesis"},
    {"PathAsBookInBeblia",
     [] {
         return beblia(
             "<book number=\"../../x\"><chapter number=\"1\"><verse number=\"1\">a</verse></chapter>"
             "</book>");
     },
     "@:1: \"../../x\" is not a book number: write one in number, such as 1 for Genesis"},
    {"PathAsBookInOpenSong",
     [] { return "<bible><b n=\"../../x\"><c n=\"1\"><v n=\"1\">a</v></c></b></bible>"; },
     "@:1: \"../../x\" is not a known book name: write an English or Bulgarian one in n, such "
     "as Genesis"},
    {"PathAsBookInCes", [] { return "<cesDoc><div type='book' id='b.../../x'><seg/></div></cesDoc>"; },
     "@:1: \"/x\" is not a book code: write one in id, such as GEN"},
    {"PathAsBookInUsfm", [] { return "\\id ../../x\n\\c 1\n\\v 1 a"; },
     "@:1: \"../../x\" is not a book code: write one after \\id, such as GEN"},
};

INSTANTIATE_TEST_SUITE_P(Nesting, HostileSource, testing::ValuesIn(nesting), nameOfHostile);
INSTANTIATE_TEST_SUITE_P(Attributes, HostileSource, testing::ValuesIn(attributes), nameOfHostile);
INSTANTIATE_TEST_SUITE_P(Entities, HostileSource, testing::ValuesIn(entities), nameOfHostile);
INSTANTIATE_TEST_SUITE_P(Numbers, HostileSource, testing::ValuesIn(numbers), nameOfHostile);
INSTANTIATE_TEST_SUITE_P(Lengths, HostileSource, testing::ValuesIn(lengths), nameOfHostile);
INSTANTIATE_TEST_SUITE_P(Paths, HostileSource, testing::ValuesIn(paths), nameOfHostile);

} // namespace

} // namespace process_test
