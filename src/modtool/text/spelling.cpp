#include "spelling.h"

#include <unicode/unistr.h>

#include <algorithm>
#include <cstdint>
#include <numeric>
#include <vector>

namespace Kedrin::ModTool {

namespace {

using CodePoints = std::vector<UChar32>;

CodePoints codePointsOf(std::string_view utf8)
{
    const icu::UnicodeString text =
        icu::UnicodeString::fromUTF8(icu::StringPiece(utf8.data(), static_cast<std::int32_t>(utf8.size())));
    CodePoints codePoints;
    for (std::int32_t i = 0; i < text.length(); i = text.moveIndex32(i, 1))
        codePoints.push_back(text.char32At(i));
    return codePoints;
}

/// How many letters must be put in, taken out or exchanged, or swapped with the next, to make one text of the other.
std::size_t editDistance(const CodePoints& a, const CodePoints& b)
{
    // [number of letters of b]: for the last letter of a but one, the last, and the one being added
    std::vector<std::size_t> before, row(b.size() + 1), next(b.size() + 1);
    std::iota(row.begin(), row.end(), std::size_t(0));
    for (std::size_t i = 0; i < a.size(); ++i) {
        next[0] = i + 1;
        for (std::size_t j = 0; j < b.size(); ++j) {
            next[j + 1] = std::min({next[j] + 1, row[j + 1] + 1, row[j] + (a[i] != b[j])});
            if (i > 0 && j > 0 && a[i] == b[j - 1] && a[i - 1] == b[j])
                next[j + 1] = std::min(next[j + 1], before[j - 1] + 1);
        }
        before = row;
        row.swap(next);
    }
    return row[b.size()];
}

} // namespace

std::optional<std::size_t> lettersMisspelt(std::string_view typed, std::string_view known)
{
    constexpr std::size_t maxLetters = 60;
    constexpr std::size_t maxBytes = 4 * maxLetters;
    if (typed.empty() || typed.size() > maxBytes || known.size() > 2 * maxBytes)
        return std::nullopt;
    const CodePoints wanted = codePointsOf(typed);
    if (wanted.size() > maxLetters)
        return std::nullopt;
    const std::size_t distance = editDistance(wanted, codePointsOf(known));
    return distance <= (wanted.size() > 4 ? 2u : 1u) ? std::optional(distance) : std::nullopt;
}

bool isLikeSpelling(std::string_view typed, std::string_view known)
{
    return lettersMisspelt(typed, known).has_value();
}

} // namespace Kedrin::ModTool
