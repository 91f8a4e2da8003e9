#include "substitutes.h"

#include "ascii.h"
#include "cp1251.h"
#include "ut_utils.h"

#include <unicode/normalizer2.h>
#include <unicode/uchar.h>
#include <unicode/unistr.h>

#include <algorithm>
#include <array>
#include <iterator>

namespace Kedrin::ModTool {

namespace {

struct Substitute
{
    char32_t from;
    std::u16string_view to;
};

// Ascending by the first column. Characters whose decomposition gives the same (é, ﬁ, ½, thin spaces) need no
// row.
constexpr Substitute table[] = {
    {0x00A1, u"!"},
    {0x00A2, u"c"},
    {0x00A3, u"GBP"},
    {0x00AA, u"a"},
    {0x00BA, u"o"},
    {0x00BF, u"?"},
    {0x00C6, u"Ae"},
    {0x00D0, u"D"},
    {0x00D7, u"x"},
    {0x00D8, u"O"},
    {0x00DE, u"Th"},
    {0x00DF, u"ss"},
    {0x00E6, u"ae"},
    {0x00F0, u"d"},
    {0x00F7, u":"},
    {0x00F8, u"o"},
    {0x00FE, u"th"},
    {0x0110, u"D"},
    {0x0111, u"d"},
    {0x0126, u"H"},
    {0x0127, u"h"},
    {0x0131, u"i"},
    {0x0141, u"L"},
    {0x0142, u"l"},
    {0x014A, u"Ng"},
    {0x014B, u"ng"},
    {0x0152, u"Oe"},
    {0x0153, u"oe"},
    {0x01FC, u"Ae"},
    {0x01FD, u"ae"},
    {0x02B9, u"'"},
    {0x02BB, u"'"},
    {0x02BC, u"\u2019"},
    {0x02BD, u"'"},
    {0x02BE, u"'"},
    {0x02BF, u"'"},
    {0x02C8, u"'"},
    {0x040D, u"\u0418"},
    {0x045D, u"\u0438"},
    {0x0460, u"\u041E"},
    {0x0461, u"\u043E"},
    {0x0462, u"\u0415"},
    {0x0463, u"\u0435"},
    {0x0464, u"\u0415"},
    {0x0465, u"\u0435"},
    {0x0466, u"\u042F"},
    {0x0467, u"\u044F"},
    {0x0468, u"\u042F"},
    {0x0469, u"\u044F"},
    {0x046A, u"\u042A"},
    {0x046B, u"\u044A"},
    {0x046C, u"\u042F"},
    {0x046D, u"\u044F"},
    {0x046E, u"\u041A\u0441"},
    {0x046F, u"\u043A\u0441"},
    {0x0470, u"\u041F\u0441"},
    {0x0471, u"\u043F\u0441"},
    {0x0472, u"\u0424"},
    {0x0473, u"\u0444"},
    {0x0474, u"\u0418"},
    {0x0475, u"\u0438"},
    {0x0478, u"\u0423"},
    {0x0479, u"\u0443"},
    {0x047A, u"\u041E"},
    {0x047B, u"\u043E"},
    {0x047C, u"\u041E"},
    {0x047D, u"\u043E"},
    {0x047E, u"\u041E\u0442"},
    {0x047F, u"\u043E\u0442"},
    {0x1E9E, u"Ss"},
    {0x2010, u"-"},
    {0x2011, u"-"},
    {0x2012, u"\u2013"},
    {0x2015, u"\u2014"},
    {0x201B, u"\u2018"},
    {0x201F, u"\u201C"},
    {0x2027, u"\u00B7"},
    {0x2032, u"'"},
    {0x2033, u"\""},
    {0x2034, u"'''"},
    {0x2035, u"'"},
    {0x2036, u"\""},
    {0x2043, u"-"},
    {0x2044, u"/"},
    {0x2053, u"~"},
    {0x2192, u"->"},
    {0x2212, u"-"},
    {0x2215, u"/"},
    {0x2219, u"\u00B7"},
    {0x2E3A, u"\u2014"},
    {0x2E3B, u"\u2014"},
    {0x3001, u","},
    {0x3002, u"."},
    {0x3008, u"\u2039"},
    {0x3009, u"\u203A"},
    {0x300A, u"\u00AB"},
    {0x300B, u"\u00BB"},
    {0xA64A, u"\u0423"},
    {0xA64B, u"\u0443"},
    {0xA656, u"\u042F"},
    {0xA657, u"\u044F"},
};

const std::u16string_view* inTable(char32_t codePoint)
{
    const auto* row = std::lower_bound(std::begin(table), std::end(table), codePoint,
                                       [](const Substitute& s, char32_t wanted) { return s.from < wanted; });
    return row != std::end(table) && row->from == codePoint ? &row->to : nullptr;
}

bool isBlank(char32_t codePoint) { return u_isUWhiteSpace(static_cast<UChar32>(codePoint)) != 0; }

/// The decomposition without accents in Windows-1251; nothing if a part of it is not in Windows-1251, or
/// nothing is left.
std::optional<std::string> decomposed(char32_t codePoint)
{
    UErrorCode status = U_ZERO_ERROR;
    const icu::Normalizer2* nfkd = icu::Normalizer2::getNFKDInstance(status);
    if (U_FAILURE(status))
        return std::nullopt;
    const icu::UnicodeString parts =
        nfkd->normalize(icu::UnicodeString(static_cast<UChar32>(codePoint)), status);
    std::string bytes;
    for (int32_t i = 0; U_SUCCESS(status) && i < parts.length(); i = parts.moveIndex32(i, 1)) {
        const auto part = static_cast<char32_t>(parts.char32At(i));
        if (u_charType(static_cast<UChar32>(part)) == U_NON_SPACING_MARK)
            continue;
        if (const auto* row = inTable(part))
            bytes += ut::to_cp1251(*row);
        else if (isBlank(part))
            bytes += ' ';
        else if (const auto byte = ut::to_cp1251(part))
            bytes += *byte;
        else
            return std::nullopt;
    }
    return bytes.empty() ? std::nullopt : std::optional(bytes);
}

bool isInvisible(char32_t codePoint)
{
    const auto type = u_charType(static_cast<UChar32>(codePoint));
    return type == U_CONTROL_CHAR || type == U_FORMAT_CHAR || type == U_NON_SPACING_MARK ||
           type == U_ENCLOSING_MARK;
}

} // namespace

std::string substituteFor(char32_t codePoint)
{
    if (const auto* row = inTable(codePoint))
        return ut::to_cp1251(*row);
    if (isInvisible(codePoint))
        return "";
    return decomposed(codePoint).value_or("?");
}

std::string substituteFor(const icu::UnicodeString& letter)
{
    std::string bytes;
    for (int32_t i = 0; i < letter.length(); i = letter.moveIndex32(i, 1)) {
        const auto codePoint = static_cast<char32_t>(letter.char32At(i));
        const auto byte = ut::to_cp1251(codePoint);
        bytes += byte ? std::string(1, *byte) : substituteFor(codePoint);
    }
    return bytes;
}

bool isReplacedAlways(char32_t codePoint)
{
    return codePoint == 0x0400 || codePoint == 0x040D || codePoint == 0x0450 || codePoint == 0x045D;
}

bool isReplacedAlways(const icu::UnicodeString& letter)
{
    constexpr char32_t grave = 0x0300;
    for (int32_t i = 0; i < letter.length(); i = letter.moveIndex32(i, 1)) {
        const auto codePoint = static_cast<char32_t>(letter.char32At(i));
        if (codePoint != grave && !isReplacedAlways(codePoint) && !ut::to_cp1251(codePoint))
            return false;
    }
    return true;
}

std::string characterName(char32_t codePoint)
{
    std::array<char, 128> name{};
    UErrorCode status = U_ZERO_ERROR;
    u_charName(static_cast<UChar32>(codePoint), U_EXTENDED_CHAR_NAME, name.data(), name.size(), &status);
    return U_SUCCESS(status) ? name.data() : "";
}

bool isLetter(char32_t codePoint) { return u_isalpha(static_cast<UChar32>(codePoint)) != 0; }

std::string describeCharacter(char32_t codePoint)
{
    return ut::format("U+%04X ", static_cast<unsigned int>(codePoint)) + characterName(codePoint);
}

} // namespace Kedrin::ModTool
