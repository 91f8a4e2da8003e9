// USX and USFX that are made to do harm.

#include "hostile_source.h"

namespace process_test {

namespace {

std::string usx(const std::string& content)
{
    return "<usx><book code=\"GEN\" style=\"id\"/><chapter number=\"1\"/>" + content + "</usx>";
}

std::string usfx(const std::string& content)
{
    return "<usfx><book id=\"GEN\"><c id=\"1\"/>" + content + "</book></usfx>";
}

const std::vector<Hostile> usfmInXml{
    {"DeepNestingInUsx", [] { return usx(repeated("<para style=\"p\">")); }, tooDeep},
    {"DeepNestingInUsfx", [] { return usfx(repeated("<p>")); }, tooDeep},
    {"EntityBombInUsx", [] { return bomb("usx") + usx("&j;"); }, declares},
    {"EntityBombInUsfx", [] { return bomb("usfx") + usfx("&j;"); }, declares},
    {"NumberOfFourBillionInUsx", [] { return usx("<verse number=\"4294967297\"/>a"); }, ""},
    {"NumberOfFourBillionInUsfx", [] { return usfx("<v id=\"4294967297\"/>a"); }, ""},
    {"EndlessVerseInUsx", [] { return usx("<verse number=\"1\"/>" + repeated("a")); }, tooLong},
    {"EndlessTitleInUsx",
     [] {
         return usx("<verse number=\"1\"/><para style=\"mt1\">" + repeated("<b>a</b>", 8u << 20) + "</para>");
     },
     "the source contains no text"},
    {"EndlessVerseInUsfx", [] { return usfx("<v id=\"1\"/>" + repeated("a")); }, tooLong},
    {"EmptyVersesInUsx", [] { return usx(repeated("<verse number=\"1\"/>")); },
     "the source contains no text"},
    {"EmptyVersesInUsfx", [] { return usfx(repeated("<v id=\"1\"/>")); }, "the source contains no text"},
    {"PathAsBookInUsx",
     [] { return "<usx><book code=\"../../x\"/><chapter number=\"1\"/><verse number=\"1\"/>a</usx>"; },
     "@:1: \"../../x\" is not a book code: write one in code, such as GEN"},
    {"PathAsBookInUsfx", [] { return "<usfx><book id=\"../../x\"/><c id=\"1\"/><v id=\"1\"/>a</usfx>"; },
     "@:1: \"../../x\" is not a book code: write one in id, such as GEN"},
};

INSTANTIATE_TEST_SUITE_P(UsfmInXml, HostileSource, testing::ValuesIn(usfmInXml), nameOfHostile);

} // namespace

} // namespace process_test
