#include "regex_matcher.h"

#include "errors.h"
#include "messages.h"
#include "utf16_text.h"

#include <unicode/regex.h>

namespace Kedrin::ModTool {

namespace {

/// Of the library's units, some milliseconds each: about a second for a verse.
constexpr std::int32_t maxTime = 500;
constexpr std::int32_t maxStackBytes = 8 << 20;

class CRegexMatcher final : public ITextMatcher
{
public:
    CRegexMatcher(const std::string& expression, bool byCase)
    {
        UErrorCode status = U_ZERO_ERROR;
        UParseError where{};
        const auto flags = static_cast<std::uint32_t>(byCase ? 0 : UREGEX_CASE_INSENSITIVE);
        m_pattern.reset(
            icu::RegexPattern::compile(icu::UnicodeString::fromUTF8(expression), flags, where, status));
        if (U_FAILURE(status))
            throw CNotFound(message("%s is not a regular expression (at character %s)", inQuotes(expression),
                                    where.offset));
    }

    std::vector<TextSpan> matches(std::string_view utf8) const override
    {
        const CUtf16Text text(utf8);
        UErrorCode status = U_ZERO_ERROR;
        const std::unique_ptr<icu::RegexMatcher> matcher(m_pattern->matcher(text.text(), status));
        if (U_SUCCESS(status)) {
            matcher->setTimeLimit(maxTime, status);
            matcher->setStackLimit(maxStackBytes, status);
        }
        std::vector<TextSpan> spans;
        while (U_SUCCESS(status) && matcher->find(status)) {
            const std::int32_t begin = matcher->start(status), end = matcher->end(status);
            spans.push_back({text.byteOf(begin), text.byteOf(end)});
        }
        if (U_FAILURE(status))
            throw CNotFound(tr("the expression takes too long"));
        return spans;
    }

private:
    std::unique_ptr<icu::RegexPattern> m_pattern;
};

} // namespace

std::unique_ptr<ITextMatcher> makeRegexMatcher(const std::string& expression, bool byCase)
{
    return std::make_unique<CRegexMatcher>(expression, byCase);
}

} // namespace Kedrin::ModTool
