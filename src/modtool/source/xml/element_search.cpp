#include "element_search.h"

#include <algorithm>
#include <utility>

namespace Kedrin::ModTool {

namespace {

/// Parts of a document in which a '<' begins no element, with their ends.
constexpr std::pair<std::string_view, std::string_view> otherParts[] = {
    {"<!--", "-->"}, {"<![CDATA[", "]]>"}, {"<?", "?>"}};

/// Where to look on behind the '<' at the front of the text.
std::size_t bytesToSkip(std::string_view text)
{
    for (const auto& [begin, end] : otherParts)
        if (text.starts_with(begin))
            return std::min(text.find(end, begin.size()), text.size());
    return 1;
}

/// Whether the name at the front of a tag is this one.
bool isName(std::string_view tag, std::string_view name)
{
    return tag.starts_with(name) && tag.size() > name.size() &&
           std::string_view(" \t\r\n/>").find(tag[name.size()]) != std::string_view::npos;
}

} // namespace

std::string_view firstElementOf(std::string_view utf8, std::initializer_list<std::string_view> names)
{
    for (std::size_t at = utf8.find('<'); at < utf8.size();
         at = utf8.find('<', at + bytesToSkip(utf8.substr(at)))) {
        const std::string_view rest = utf8.substr(at + 1);
        const auto* found = std::find_if(names.begin(), names.end(),
                                         [&](std::string_view name) { return isName(rest, name); });
        if (found != names.end())
            return *found;
    }
    return {};
}

} // namespace Kedrin::ModTool
