#include "marked_maker.h"

#include <stdexcept>

namespace build_test {

namespace {

// clang-format off
constexpr BookName bookNames[] = {
    {"Gen", "GEN", 1}, {"Exod", "EXO", 2}, {"Lev", "LEV", 3}, {"Num", "NUM", 4}, {"Deut", "DEU", 5},
    {"Josh", "JOS", 6}, {"Judg", "JDG", 7}, {"Ruth", "RUT", 8}, {"1Sam", "1SA", 9}, {"2Sam", "2SA", 10},
    {"1Kgs", "1KI", 11}, {"2Kgs", "2KI", 12}, {"1Chr", "1CH", 13}, {"2Chr", "2CH", 14}, {"Ezra", "EZR", 15},
    {"Neh", "NEH", 16}, {"Esth", "EST", 17}, {"Job", "JOB", 18}, {"Ps", "PSA", 19}, {"Prov", "PRO", 20},
    {"Eccl", "ECC", 21}, {"Song", "SNG", 22}, {"Isa", "ISA", 23}, {"Jer", "JER", 24}, {"Lam", "LAM", 25},
    {"Ezek", "EZK", 26}, {"Dan", "DAN", 27}, {"Hos", "HOS", 28}, {"Joel", "JOL", 29}, {"Amos", "AMO", 30},
    {"Obad", "OBA", 31}, {"Jonah", "JON", 32}, {"Mic", "MIC", 33}, {"Nah", "NAM", 34}, {"Hab", "HAB", 35},
    {"Zeph", "ZEP", 36}, {"Hag", "HAG", 37}, {"Zech", "ZEC", 38}, {"Mal", "MAL", 39}, {"Matt", "MAT", 40},
    {"Mark", "MRK", 41}, {"Luke", "LUK", 42}, {"John", "JHN", 43}, {"Acts", "ACT", 44}, {"Rom", "ROM", 45},
    {"1Cor", "1CO", 46}, {"2Cor", "2CO", 47}, {"Gal", "GAL", 48}, {"Eph", "EPH", 49}, {"Phil", "PHP", 50},
    {"Col", "COL", 51}, {"1Thess", "1TH", 52}, {"2Thess", "2TH", 53}, {"1Tim", "1TI", 54},
    {"2Tim", "2TI", 55}, {"Titus", "TIT", 56}, {"Phlm", "PHM", 57}, {"Heb", "HEB", 58}, {"Jas", "JAS", 59},
    {"1Pet", "1PE", 60}, {"2Pet", "2PE", 61}, {"1John", "1JN", 62}, {"2John", "2JN", 63},
    {"3John", "3JN", 64}, {"Jude", "JUD", 65}, {"Rev", "REV", 66}, {"Jdt", "JDT", 67}, {"Wis", "WIS", 68},
    {"Tob", "TOB", 69}, {"Sir", "SIR", 70}, {"Bar", "BAR", 71}, {"1Macc", "1MA", 72}, {"2Macc", "2MA", 73},
    {"PrMan", "MAN", 76}, {"3Macc", "3MA", 77}, {"4Macc", "4MA", 78}, {"EpJer", "LJE", 79},
    {"1Esd", "1ES", 80}, {"2Esd", "2ES", 81}, {"EsthGr", "ESG", 100}, {"AddPs", "PS2", 101},
};
// clang-format on

} // namespace

const BookName& nameOf(const std::string& osis)
{
    for (const BookName& name : bookNames)
        if (osis == name.osis)
            return name;
    throw std::out_of_range(osis);
}

std::string inXml(const std::string& text)
{
    std::string escaped;
    for (const char c : text)
        escaped += c == '<' ? "&lt;" : c == '>' ? "&gt;" : c == '&' ? "&amp;" : std::string(1, c);
    return escaped;
}

} // namespace build_test
