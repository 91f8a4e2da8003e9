#include "word_gap.h"

#include <unicode/uchar.h>
#include <unicode/utf8.h>

namespace Kedrin::ModTool {

namespace {

bool isOpening(UChar32 codePoint)
{
    const auto type = u_charType(codePoint);
    return type == U_START_PUNCTUATION || type == U_INITIAL_PUNCTUATION;
}

} // namespace

bool beginsWord(std::string_view utf8)
{
    if (utf8.empty())
        return false;
    std::int32_t i = 0;
    UChar32 codePoint;
    U8_NEXT(reinterpret_cast<const std::uint8_t*>(utf8.data()), i, static_cast<std::int32_t>(utf8.size()),
            codePoint);
    return codePoint >= 0 && (u_isalnum(codePoint) || isOpening(codePoint));
}

bool endsOpen(std::string_view utf8)
{
    if (utf8.empty())
        return true;
    auto i = static_cast<std::int32_t>(utf8.size());
    UChar32 codePoint;
    U8_PREV(reinterpret_cast<const std::uint8_t*>(utf8.data()), 0, i, codePoint);
    return codePoint >= 0 && (u_isUWhiteSpace(codePoint) || isOpening(codePoint));
}

} // namespace Kedrin::ModTool
