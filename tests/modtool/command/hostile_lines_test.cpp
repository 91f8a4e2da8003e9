// Verse lines and plain lines that are made to do harm.

#include "hostile_source.h"

namespace process_test {

namespace {

std::string line(const std::string& verse, const std::string& text)
{
    return "Gen\t1\t" + verse + '\t' + text + '\n';
}

/// Lines that a plain text is known by, and others behind them.
std::string plain(const std::string& others) { return repeated("Gen 1:1 a\n", 200) + others; }

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

const std::vector<Hostile> verseLines{
    {"DeepNestingInVerseLines", [] { return line("1", repeated("<a>", 9999)); }, ""},
    {"HugeTitleInVerseLines", [] { return "# title: " + repeated("x") + '\n' + line("1", "a"); },
     "the full title has 16777216 bytes; the limit is 255"},
    {"ManyBooksInVerseLines", [] { return numbered("# book: A", "\t\t\t\n", 500000) + line("1", "a"); },
     "@:1001: more than 1000 books"},
    {"EntityBombInVerseLines",
     [] { return line("1", "<!DOCTYPE a [<!ENTITY a 'ha'><!ENTITY j '&a;&a;'>]>&j;"); }, ""},
    {"NumberOfFourBillionInVerseLines", [] { return line("4294967297", "a"); },
     "@:1: \"4294967297\" is not a verse number from 1 to 65534"},
    {"LastNumberInVerseLines", [] { return "Gen\t65534\t65534\ta\n"; }, "Gen 65534:2" + manyVerses},
    {"EndlessVerseInVerseLines", [] { return line("1", repeated("a")); }, longVerse},
    {"EmptyVersesInVerseLines", [] { return repeated(line("1", "")); },
     "@:2: Gen 1:1 is given twice, first in line 1"},
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

INSTANTIATE_TEST_SUITE_P(VerseLines, HostileSource, testing::ValuesIn(verseLines), nameOfHostile);
INSTANTIATE_TEST_SUITE_P(PlainLines, HostileSource, testing::ValuesIn(plainLines), nameOfHostile);

} // namespace

} // namespace process_test
