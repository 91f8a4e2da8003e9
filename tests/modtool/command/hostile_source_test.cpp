// Sources that are made to do harm: each format's reader ends with one error, or takes what is harmless for text, in
// bounded memory and time.

#include "built_process.h"

#include <sys/resource.h>

#include <functional>

namespace {

using namespace process_test;

#if defined(__SANITIZE_ADDRESS__)
constexpr bool isSanitized = true;
#else
constexpr bool isSanitized = false;
#endif

std::string repeated(const std::string& text, std::size_t byteCount = 16u << 20)
{
    std::string all;
    all.reserve(byteCount + text.size());
    while (all.size() < byteCount)
        all += text;
    return all;
}

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
std::string usfm(const std::string& content) { return "\\id GEN\n\\c 1\n" + content; }
std::string usfmVerse(const std::string& number, const std::string& text)
{
    return usfm("\\v " + number + ' ' + text);
}
std::string line(const std::string& verse, const std::string& text)
{
    return "Gen\t1\t" + verse + '\t' + text + '\n';
}

/// Lines that a plain text is known by, and others behind them.
std::string plain(const std::string& others) { return repeated("Gen 1:1 a\n", 200) + others; }

/// Entities that would be a billion times the first one, before this root element.
std::string bomb(const std::string& root)
{
    std::string type = "<!DOCTYPE " + root + " [<!ENTITY a 'ha'>";
    for (char name = 'b'; name < 'k'; ++name)
        type += std::string("<!ENTITY ") + name + " '" +
                repeated(std::string("&") + char(name - 1) + ';', 40) + "'>";
    return type + "]>";
}

/// Different words, so many that a list of them would be longer than any.
std::string words(std::size_t count)
{
    std::string text;
    for (std::size_t i = 0; i < count; ++i) {
        text += i % 8000 == 0 ? (i == 0 ? "Gen\t1\t1\t" : "\nGen\t1\t" + std::to_string(i / 8000 + 1) + '\t')
                              : " ";
        for (std::size_t rest = i + 26; rest > 0; rest /= 26)
            text += static_cast<char>('a' + rest % 26);
    }
    return text;
}

/// Many different things of one kind, "<a17f/>".
std::string numbered(const std::string& before, const std::string& after, unsigned int count)
{
    std::string all;
    for (unsigned int i = 0; i < count; ++i)
        all += before + std::to_string(i) + after;
    return all;
}

struct Hostile
{
    const char* name; ///< of the test
    std::function<std::string()> content;
    std::string said; ///< what follows "kedrin-module: "; "@" stands for the file; "" where it is harmless
};

void PrintTo(const Hostile& hostile, std::ostream* out) { *out << hostile.name; }

class HostileSource : public BuiltProcess, public testing::WithParamInterface<Hostile>
{
protected:
    /// Runs the program with a gigabyte of address space and as many seconds of processor time as it must not need.
    static ForkedEnd runBounded(const Command& command)
    {
        return test_support::runForked([&]() -> int {
            const rlimit seconds{isSanitized ? 300u : 30u, RLIM_INFINITY};
            ::setrlimit(RLIMIT_CPU, &seconds);
            const rlimit bytes{1u << 30, 1u << 30};
            if (!isSanitized) // a sanitizer reserves more than any limit
                ::setrlimit(RLIMIT_AS, &bytes);
            become(command);
        });
    }

    std::string said(std::string message, const std::string& file) const
    {
        if (message.empty())
            return "";
        if (const std::size_t at = message.find('@'); at != std::string::npos)
            message.replace(at, 1, file);
        return "kedrin-module: " + message + '\n';
    }
};

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

const std::string declares = "@:1: declares entities or elements of its own, which is not allowed";
const std::string tooDeep = "@:1: elements are nested more than 100 deep";
const std::string tooLong = "@:1: not well-formed XML: part of it is too long";
const std::string tooManyNames = "@:1: not well-formed XML: it has too many names";
const std::string longVerse = "Gen 1:1: the verse has 16777216 bytes; the limit is 65535";
const std::string manyVerses = ": the module would have more than 65534 verses";

const std::vector<Hostile> nesting{
    {"DeepNestingInOsis", [] { return osis(repeated("<a>")); }, tooDeep},
    {"DeepNestingInZefania", [] { return zefania(repeated("<a>")); }, tooDeep},
    {"DeepNestingInBeblia", [] { return beblia(repeated("<a>")); }, tooDeep},
    {"DeepNestingInOpenSong", [] { return openSong(repeated("<a>")); }, tooDeep},
    {"DeepNestingInUsfm", [] { return usfmVerse("1", "a" + repeated("\\add ")); }, ""},
    {"DeepNestingInVerseLines", [] { return line("1", repeated("<a>", 9999)); }, ""},
};

const std::vector<Hostile> attributes{
    {"HugeAttributeInOsis", [] { return osis("<a b=\"" + repeated("x") + "\"/>"); }, tooLong},
    {"HugeAttributeInZefania", [] { return zefania("<a b=\"" + repeated("x") + "\"/>"); }, tooLong},
    {"HugeAttributeInUsfm", [] { return usfmVerse("1", "\\w a|lemma=\"" + repeated("x") + "\"\\w*"); }, ""},
    {"HugeTitleInVerseLines", [] { return "# title: " + repeated("x") + '\n' + line("1", "a"); },
     "the full title has 16777216 bytes; the limit is 255"},
    {"ManyAttributesInOsis", [] { return osis("<a " + numbered("b", "='' ", 500000) + "/>"); }, tooManyNames},
    {"ManyAttributesInZefania", [] { return zefania("<a " + numbered("b", "='' ", 500000) + "/>"); },
     tooManyNames},
    {"ManyBooksInVerseLines", [] { return numbered("# book: A", "\t\t\t\n", 500000) + line("1", "a"); },
     "@:1001: more than 1000 books"},
};

const std::vector<Hostile> entities{
    {"EntityBombInOsis", [] { return bomb("osis") + osisVerse("Gen.1.1", "&j;"); }, declares},
    {"EntityBombInZefania", [] { return bomb("XMLBIBLE") + zefaniaVerse("1", "&j;"); }, declares},
    {"EntityBombInBeblia", [] { return bomb("bible") + bebliaVerse("1", "&j;"); }, declares},
    {"EntityBombInOpenSong", [] { return bomb("bible") + openSongVerse("1", "&j;"); }, declares},
    {"EntityBombInUsfm", [] { return usfmVerse("1", bomb("a") + "&j;"); }, ""},
    {"EntityBombInVerseLines", [] { return line("1", bomb("a") + "&j;"); }, ""},
};

const std::vector<Hostile> numbers{
    {"NumberOfFourBillionInOsis", [] { return osisVerse("Gen.1.4294967297", "a"); },
     "@:1: \"Gen.1.4294967297\" is not a verse reference, such as Gen.1.1"},
    {"NumberOfFourBillionInZefania", [] { return zefaniaVerse("4294967297", "a"); }, ""},
    {"NumberOfFourBillionInBeblia", [] { return bebliaVerse("4294967297", "a"); }, ""},
    {"NumberOfFourBillionInOpenSong", [] { return openSongVerse("4294967297", "a"); }, ""},
    {"NumberOfFourBillionInUsfm", [] { return usfmVerse("4294967297", "a"); }, ""},
    {"NumberOfFourBillionInVerseLines", [] { return line("4294967297", "a"); },
     "@:1: \"4294967297\" is not a verse number from 1 to 65534"},
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
    {"LastNumberInVerseLines", [] { return "Gen\t65534\t65534\ta\n"; }, "Gen 65534:2" + manyVerses},
};

const std::vector<Hostile> lengths{
    {"EndlessVerseInOsis", [] { return osisVerse("Gen.1.1", repeated("<a>a</a>", 65u << 20)); },
     "@: is larger than 64 MiB"},
    {"EndlessVerseInZefania", [] { return zefaniaVerse("1", repeated("<BR/>a&lt;", 40u << 20)); },
     "Gen 1:1: the verse has 25165823 bytes; the limit is 65535"},
    {"EndlessVerseInBeblia", [] { return bebliaVerse("1", repeated("a")); }, tooLong},
    {"EndlessVerseInOpenSong", [] { return openSongVerse("1", repeated("a")); }, tooLong},
    {"EndlessVerseInUsfm", [] { return usfmVerse("1", repeated("a")); }, longVerse},
    {"EndlessVerseInVerseLines", [] { return line("1", repeated("a")); }, longVerse},
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
    {"EmptyVersesInVerseLines", [] { return repeated(line("1", "")); },
     "@:2: Gen 1:1 is given twice, first in line 1"},
    {"CommentsInOsis", [] { return osis(repeated("<!---->")); }, "@: contains no verses"},
    {"InstructionsInZefania", [] { return repeated("<?a?>") + zefania(""); }, "@: contains no verses"},
    {"NamesInOsis", [] { return osis(numbered("<a", "/>", 1000000)); }, tooManyNames},
    {"NamesInZefania", [] { return zefania(numbered("<a", ":b/>", 1000000)); }, tooManyNames},
    {"EndlessCopyrightInVerseLines", [] { return "# copyright: " + repeated("x") + '\n' + line("1", "a"); },
     ""},
    {"ExpandingCharactersInVerseLines",
     [] {
         std::string lines;
         for (unsigned int verse = 1; verse < 6000; ++verse)
             lines += line(std::to_string(verse), repeated("\uFDFA", 3000));
         return lines;
     },
     "the text contains characters that Windows-1251 lacks (--substitute replaces them):\n"
     "  U+FDFA ARABIC LIGATURE SALLALLAHOU ALAYHE WASALLAM, 5999000 times, first at Gen 1:1"},
    {"EndlessAccentedWordInVerseLines", [] { return line("1", repeated("\u0431\u00E0", 4u << 20)); },
     "Gen 1:1: the verse has 2097152 bytes; the limit is 65535"},
    {"EndlessStressInVerseLines", [] { return line("1", "\u0431" + repeated("\u0300")); },
     "the text contains characters that Windows-1251 lacks (--substitute replaces them):\n"
     "  U+0300 COMBINING GRAVE ACCENT, 8388568 times, first at Gen 1:1"},
    {"WordsInVerseLines", [] { return words(1100000); }, "the text has more than 1048576 different words"},
    {"TextInVerseLines",
     [] {
         std::string lines;
         for (unsigned int verse = 1; verse <= 300; ++verse)
             lines += line(std::to_string(verse), std::string(60000, 'a'));
         return lines;
     },
     "the text has 18000000 bytes; the limit is 16777216"},
};

const std::vector<Hostile> paths{
    {"PathAsBookInOsis", [] { return osisVerse("../../../tmp/x.1.1", "a"); },
     "@:1: \"../../../tmp/x.1.1\" is not a verse reference, such as Gen.1.1"},
    {"PathAsBookOfOsis",
     [] { return osis("<div type=\"book\" osisID=\"../../x\"><verse osisID=\"/x.1.1\">a</verse></div>"); },
     "none of the source's books is in the global numbering"},
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
     "@:1: \"../../x\" is no book number: write one into number, such as 1 for Genesis"},
    {"PathAsBookInOpenSong",
     [] { return "<bible><b n=\"../../x\"><c n=\"1\"><v n=\"1\">a</v></c></b></bible>"; },
     "@:1: \"../../x\" is not a known book name: write an English or Bulgarian one in n, such "
     "as Genesis"},
    {"PathAsBookInUsfm", [] { return "\\id ../../x\n\\c 1\n\\v 1 a"; },
     "@:1: \"../../x\" is not a book code: write one after \\id, such as GEN"},
    {"PathAsBookInVerseLines", [] { return "../../x\t1\t1\ta\n"; },
     "@:1: \"../../x\" is not an OSIS book id"},
    {"PathAsTitleInVerseLines", [] { return "# title: ../../x\n" + line("1", "a"); }, ""},
};

std::string badLines(const std::string& count, unsigned int first, const std::string& reason,
                     unsigned int step = 1)
{
    std::string list = "@: " + count + " lines cannot be read:";
    for (unsigned int line = first; line < first + 20 * step; line += step)
        list += "\n  line " + std::to_string(line) + ": " + reason;
    return list;
}

const std::vector<Hostile> plainLines{
    {"QuotesInPlainLines", [] { return repeated("\""); },
     "@:1: a line must be BOOK, CHAPTER, VERSE and text, separated by tabs"},
    {"QuotesInAField", [] { return "Gen,1,1,\"" + repeated("\""); },
     "@: 1 line cannot be read:\n  line 1: a quotation mark is never closed"},
    {"QuotedFields", [] { return "Gen,1,1,a\nGen,1,2," + repeated("\"\","); },
     "@: 1 line cannot be read:\n  line 2: has more than 4 fields"},
    {"OpenQuotesInEveryRecord", [] { return "Gen,1,1,a\n" + repeated("Gen,1,1,\"a\n"); },
     badLines("762601", 2, "text after a closing quotation mark", 2) + "\n  and 762581 more lines"},
    {"DelimitersInATable", [] { return "Gen,1,1," + repeated(","); }, longVerse},
    {"ColumnsOfATable", [] { return "b,c,v,t" + repeated(","); }, "@: contains no verses"},
    {"HashesInPlainLines", [] { return plain(repeated("#")); }, ""},
    {"LinesOfHashesInPlainLines", [] { return plain(repeated("#\n")); }, ""},
    {"MarksInHashedLines", [] { return repeated("#p#") + "\n#1:1#a\n"; },
     "@:2: a verse before any book: write its name on a line above, or give it with --book"},
    {"AmpersandsInHashedLines", [] { return "#1:1#" + repeated("&"); },
     "@:1: a verse before any book: write its name on a line above, or give it with --book"},
    {"EndlessLineInPlainLines", [] { return "Gen 1:1 " + repeated("a"); }, longVerse},
    {"EndlessNumberInPlainLines", [] { return plain("Gen 1:" + repeated("1")); },
     "@: 1 line cannot be read:\n  line 21: \"Gen 1:" + std::string(34, '1') +
         "...\" is neither a verse, such as \"Gen 1:1 text\", nor a heading"},
    {"BadLinesInPlainLines", [] { return plain(repeated("Psx 1:1 a\n", 10u << 20)); },
     badLines("1048576", 21, "\"Psx\" is not a known book (did you mean Ps?)") +
         "\n  and 1048556 more lines"},
    {"LastNumberInPlainLines", [] { return "Gen 65534:65534 a\n"; }, "Gen 65534:2" + manyVerses},
    {"VersesWithoutTextInPlainLines", [] { return repeated("Gen 1:1\n"); }, "the source contains no text"},
};

const auto named = [](const testing::TestParamInfo<Hostile>& tested) {
    return std::string(tested.param.name);
};

INSTANTIATE_TEST_SUITE_P(Nesting, HostileSource, testing::ValuesIn(nesting), named);
INSTANTIATE_TEST_SUITE_P(Attributes, HostileSource, testing::ValuesIn(attributes), named);
INSTANTIATE_TEST_SUITE_P(Entities, HostileSource, testing::ValuesIn(entities), named);
INSTANTIATE_TEST_SUITE_P(Numbers, HostileSource, testing::ValuesIn(numbers), named);
INSTANTIATE_TEST_SUITE_P(Lengths, HostileSource, testing::ValuesIn(lengths), named);
INSTANTIATE_TEST_SUITE_P(PlainLines, HostileSource, testing::ValuesIn(plainLines), named);
INSTANTIATE_TEST_SUITE_P(Paths, HostileSource, testing::ValuesIn(paths), named);

} // namespace
