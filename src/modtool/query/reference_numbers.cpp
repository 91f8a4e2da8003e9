#include "reference_numbers.h"

#include <charconv>

namespace Kedrin::ModTool {

namespace {

/// The numbers after a book's name.
class CNumbers
{
public:
    explicit CNumbers(std::string_view numbers)
        : m_at(numbers.data()),
          m_end(m_at + numbers.size()),
          m_verseSign(numbers.find(':') == std::string_view::npos ? ',' : ':')
    {}

    /// False if the text is malformed.
    bool read(std::vector<ReferenceSpan>& spans)
    {
        do {
            ReferenceSpan span;
            if (!point(span.first, spans.empty() ? std::nullopt : chapterBefore(spans.back())))
                return false;
            span.last = span.first;
            if (accept('-') && !lastPoint(span))
                return false;
            spans.push_back(span);
        } while (accept(','));
        return m_at == m_end;
    }

private:
    /// The chapter that goes on after a span that ends with a verse.
    static std::optional<unsigned int> chapterBefore(const ReferenceSpan& span)
    {
        return span.last.verse ? std::optional(span.last.chapter) : std::nullopt;
    }

    /// @param chapter  of which a number alone is a verse
    bool point(ReferencePoint& point, std::optional<unsigned int> chapter)
    {
        if (!number(point.chapter))
            return false;
        if ((m_verseSign == ':' || !chapter) && accept(m_verseSign))
            return number(point.verse.emplace());
        if (chapter) {
            point.verse = point.chapter;
            point.chapter = *chapter;
        }
        return true;
    }

    bool lastPoint(ReferenceSpan& span)
    {
        const std::optional<unsigned int> chapter = chapterBefore(span);
        if (!number(span.last.chapter))
            return false;
        span.last.verse.reset();
        if (accept(m_verseSign))
            return number(span.last.verse.emplace());
        if (chapter)
            span.last = {*chapter, span.last.chapter};
        return true;
    }

    bool number(unsigned int& value)
    {
        const auto [stop, error] = std::from_chars(m_at, m_end, value);
        m_at = stop;
        return error == std::errc();
    }
    bool accept(char sign)
    {
        const bool stands = m_at != m_end && *m_at == sign;
        m_at += stands;
        return stands;
    }

    const char* m_at;
    const char* m_end;
    char m_verseSign; ///< between a chapter and a verse
};

} // namespace

std::optional<std::vector<ReferenceSpan>> parseReferenceNumbers(std::string_view numbers)
{
    std::vector<ReferenceSpan> spans;
    return CNumbers(numbers).read(spans) ? std::optional(std::move(spans)) : std::nullopt;
}

} // namespace Kedrin::ModTool
