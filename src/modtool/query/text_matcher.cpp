#include "text_matcher.h"

#include "utf16_text.h"

#include <unicode/uchar.h>

#include <algorithm>

namespace Kedrin::ModTool {

namespace {

/// Letter by letter, so that every letter keeps its index.
icu::UnicodeString lowered(icu::UnicodeString text)
{
    for (std::int32_t i = 0; i < text.length(); ++i)
        text.setCharAt(i, static_cast<char16_t>(u_tolower(text.charAt(i))));
    return text;
}

class CWordMatcher final : public ITextMatcher
{
public:
    CWordMatcher(const std::vector<std::string>& texts, bool byCase, bool wholeWords)
        : m_byCase(byCase),
          m_wholeWords(wholeWords)
    {
        for (const std::string& text : texts)
            m_texts.push_back(cased(icu::UnicodeString::fromUTF8(text)));
    }

    std::vector<TextSpan> matches(std::string_view utf8) const override
    {
        const CUtf16Text text(utf8);
        const icu::UnicodeString within = cased(text.text());
        std::vector<TextSpan> spans;
        for (std::int32_t i = 0; i < within.length();) {
            const std::int32_t length = matchAt(within, i);
            if (length != 0)
                spans.push_back({text.byteOf(i), text.byteOf(i + length)});
            i += std::max(length, 1);
        }
        return spans;
    }

private:
    icu::UnicodeString cased(icu::UnicodeString text) const
    {
        return m_byCase ? text : lowered(std::move(text));
    }

    /// The length of the longest text that stands here, 0 where none does.
    std::int32_t matchAt(const icu::UnicodeString& within, std::int32_t index) const
    {
        std::int32_t longest = 0;
        for (const icu::UnicodeString& text : m_texts)
            if (text.length() > longest && within.compare(index, text.length(), text) == 0 &&
                (!m_wholeWords || isWord(within, index, index + text.length())))
                longest = text.length();
        return longest;
    }

    static bool isWord(const icu::UnicodeString& within, std::int32_t begin, std::int32_t end)
    {
        return (begin == 0 || !u_isalnum(within.charAt(begin - 1))) &&
               (end == within.length() || !u_isalnum(within.charAt(end)));
    }

    std::vector<icu::UnicodeString> m_texts;
    bool m_byCase;
    bool m_wholeWords;
};

} // namespace

std::unique_ptr<ITextMatcher> makeWordMatcher(const std::vector<std::string>& texts, bool byCase,
                                              bool wholeWords)
{
    return std::make_unique<CWordMatcher>(texts, byCase, wholeWords);
}

} // namespace Kedrin::ModTool
