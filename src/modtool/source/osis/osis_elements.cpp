#include "osis_elements.h"

#include <algorithm>
#include <array>
#include <utility>

namespace Kedrin::ModTool {

namespace {

constexpr std::array<std::string_view, 18> blocks{
    "p",    "l",    "lg",     "lb",     "div",    "list",   "item",    "table", "row",
    "cell", "head", "closer", "speech", "salute", "signed", "chapter", "label", "caesura"};
constexpr std::array<std::string_view, 3> titles{"title", "head", "speaker"};
constexpr std::array<std::string_view, 3> figures{"figure", "caption", "index"};
constexpr std::array<std::string_view, 9> sideMatter{"introduction",    "preface",   "glossary",
                                                     "front",           "back",      "index",
                                                     "acknowledgement", "coverPage", "titlePage"};

template <std::size_t N>
bool isOneOf(std::string_view name, const std::array<std::string_view, N>& names)
{
    return std::find(names.begin(), names.end(), name) != names.end();
}

} // namespace

bool isOsisBlock(std::string_view element) { return isOneOf(element, blocks); }

bool isOsisTitle(std::string_view element) { return isOneOf(element, titles); }

bool isOsisFigure(std::string_view element) { return isOneOf(element, figures); }

bool isOsisSideMatter(std::string_view divisionType) { return isOneOf(divisionType, sideMatter); }

std::string closingQuoteMark(const std::string& opening)
{
    static constexpr std::pair<const char*, const char*> pairs[] = {{"\u201C", "\u201D"},
                                                                    {"\u2018", "\u2019"},
                                                                    {"\u201E", "\u201C"},
                                                                    {"\u00AB", "\u00BB"},
                                                                    {"\u2039", "\u203A"}};
    for (const auto& [open, close] : pairs)
        if (opening == open)
            return close;
    return opening;
}

} // namespace Kedrin::ModTool
