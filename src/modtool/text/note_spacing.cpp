#include "note_spacing.h"

#include <unicode/uchar.h>
#include <unicode/utf8.h>

#include <algorithm>
#include <vector>

namespace Kedrin::ModTool {

namespace {

struct Pair
{
    UChar32 opening;
    UChar32 closing;
};

constexpr Pair pairs[] = {{0x201E, 0x201C}, {0x201E, 0x201D}, {0x201C, 0x201D},
                          {0x201A, 0x2018}, {0x2018, 0x2019}, {0xAB, 0xBB},
                          {0xBB, 0xAB},     {0x2039, 0x203A}, {0x203A, 0x2039}};

/// Removes and returns the first character; negative if it is invalid or missing.
UChar32 takeFirst(std::string_view& utf8)
{
    if (utf8.empty())
        return U_SENTINEL;
    std::int32_t i = 0;
    UChar32 codePoint;
    U8_NEXT(reinterpret_cast<const std::uint8_t*>(utf8.data()), i, static_cast<std::int32_t>(utf8.size()),
            codePoint);
    utf8.remove_prefix(static_cast<std::size_t>(i));
    return codePoint;
}

UChar32 takeLast(std::string_view& utf8)
{
    if (utf8.empty())
        return U_SENTINEL;
    auto i = static_cast<std::int32_t>(utf8.size());
    UChar32 codePoint;
    U8_PREV(reinterpret_cast<const std::uint8_t*>(utf8.data()), 0, i, codePoint);
    utf8.remove_suffix(utf8.size() - static_cast<std::size_t>(i));
    return codePoint;
}

bool isBracket(UChar32 c) { return u_charType(c) == U_START_PUNCTUATION; }

bool isQuote(UChar32 c)
{
    const auto type = u_charType(c);
    return type == U_INITIAL_PUNCTUATION || type == U_FINAL_PUNCTUATION;
}

/// Whether a mark may open a quotation: U+201D and U+2019 (also the apostrophe) never do.
bool mayOpen(UChar32 c) { return isQuote(c) && c != 0x201D && c != 0x2019; }

bool isPair(UChar32 opening, UChar32 closing)
{
    return std::any_of(std::begin(pairs), std::end(pairs),
                       [=](const Pair& pair) { return pair.opening == opening && pair.closing == closing; });
}

/// Tracks which quotations are open at the end of a text.
class CQuoteState
{
public:
    explicit CQuoteState(std::string_view text)
    {
        UChar32 previous = ' ';
        while (!text.empty()) {
            const UChar32 c = takeFirst(text);
            m_lastOpens = isBracket(c);
            if (isBracket(c) || isQuote(c))
                add(c, previous, text);
            previous = c;
        }
    }

    /// Whether the mark ends a quotation that is open.
    bool isClosedBy(UChar32 mark) const
    {
        return std::any_of(m_open.begin(), m_open.end(), [=](UChar32 open) { return isPair(open, mark); });
    }

    /// Whether the text ends with an opening mark.
    bool lastOpens() const { return m_lastOpens; }

private:
    void add(UChar32 c, UChar32 previous, std::string_view rest)
    {
        const auto partner =
            std::find_if(m_open.rbegin(), m_open.rend(), [=](UChar32 open) { return isPair(open, c); });
        if (partner != m_open.rend()) {
            m_open.erase(partner.base() - 1, m_open.end());
            return;
        }
        const bool standsFree = u_isUWhiteSpace(previous) || isBracket(previous) || isQuote(previous) ||
                                u_charType(previous) == U_DASH_PUNCTUATION;
        const bool endsWord = !rest.empty() && u_isUWhiteSpace(takeFirst(rest));
        m_lastOpens = isBracket(c) || (mayOpen(c) && standsFree && !endsWord);
        constexpr std::size_t most = 16; // bounds the time; no real text nests deeper
        if (m_lastOpens && m_open.size() < most)
            m_open.push_back(c);
    }

    std::vector<UChar32> m_open; ///< marks of the quotations that are open, and brackets
    bool m_lastOpens = false;
};

/// Whether a mark that may open a quotation does: decided by what follows, or by its usual meaning at the
/// end.
bool opens(UChar32 mark, const CQuoteState& before, std::string_view rest)
{
    if (before.isClosedBy(mark))
        return false;
    if (rest.empty())
        return u_charType(mark) == U_INITIAL_PUNCTUATION;
    const UChar32 following = takeFirst(rest);
    return following >= 0 && (u_isalnum(following) || isBracket(following) || isQuote(following));
}

} // namespace

bool needsSpaceBetween(std::string_view before, std::string_view next)
{
    std::string_view rest = before;
    const UChar32 last = takeLast(rest);
    const UChar32 first = takeFirst(next);
    if (before.empty() || first < 0 || (last >= 0 && u_isUWhiteSpace(last)) || isBracket(last))
        return false;
    const bool beginsWord = u_isalnum(first) || isBracket(first);
    if (!isQuote(last) && !mayOpen(first))
        return beginsWord;
    constexpr std::size_t longest = 1024; // bounds the time for a verse of notes alone
    const CQuoteState quotes(before.substr(before.size() - std::min(before.size(), longest)));
    return !quotes.lastOpens() && (beginsWord || (mayOpen(first) && opens(first, quotes, next)));
}

} // namespace Kedrin::ModTool
