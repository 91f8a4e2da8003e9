#pragma once

#include <random>
#include <string>
#include <vector>

namespace build_test {

/// Milestones around the part of an entry that precedes the verse.
inline const std::string preverse = "<div type=\"x-milestone\" subType=\"x-preverse\" sID=\"pv1\"/>";
inline const std::string verseBegin = "<div type=\"x-milestone\" subType=\"x-preverse\" eID=\"pv1\"/>";

/// Pieces of every markup, some malformed.
inline std::string randomEntry(std::mt19937& random)
{
    static const std::vector<std::string> pieces{"дума",
                                                 "Word7",
                                                 " ",
                                                 " ",
                                                 "“",
                                                 "„",
                                                 "<note>",
                                                 "</note>",
                                                 "<note n=\"1\">",
                                                 "<note/>",
                                                 "<title>",
                                                 "<title canonical=\"true\">",
                                                 "<title type=\"psalm\">",
                                                 "</title>",
                                                 "<title canonical=\"false\">",
                                                 "<w>",
                                                 "<w lemma=\"strong:H1\">",
                                                 "</w>",
                                                 "<hi>",
                                                 "</hi>",
                                                 "<divineName>",
                                                 "</divineName>",
                                                 "<l>",
                                                 "</l>",
                                                 "<lg>",
                                                 "<lb/>",
                                                 "<seg type=\"x-variant\" subType=\"x-2\">",
                                                 "</seg>",
                                                 "<rdg type=\"alt\">",
                                                 "</rdg>",
                                                 "<speaker>",
                                                 "</speaker>",
                                                 "<div>",
                                                 "</div>",
                                                 "<div class=\"sechead\">",
                                                 "<div type=\"variant\" class=\"2\">",
                                                 "<scripRef>",
                                                 "</scripRef>",
                                                 "<RF>",
                                                 "<Rf>",
                                                 "<TS>",
                                                 "<Ts>",
                                                 "<WG12>",
                                                 "<CA65>",
                                                 "<CM>",
                                                 preverse,
                                                 verseBegin,
                                                 "<div eID=\"b\" type=\"book\"/>",
                                                 "&amp;",
                                                 "&#1073;",
                                                 "&x;",
                                                 "&",
                                                 "<",
                                                 ">",
                                                 "\\nd ",
                                                 "\\nd*",
                                                 "ß",
                                                 "ѝ",
                                                 "\u0345",
                                                 "42",
                                                 "Ⅷ",
                                                 "<!-- а -->",
                                                 "<note",
                                                 "\n"};
    std::uniform_int_distribution<std::size_t> length(0, 30);
    std::uniform_int_distribution<std::size_t> which(0, pieces.size() - 1);
    std::string raw;
    for (std::size_t i = length(random); i != 0; --i)
        raw += pieces[which(random)];
    return raw;
}

} // namespace build_test
