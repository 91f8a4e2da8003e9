#include "reference_parser.h"

#include "errors.h"
#include "messages.h"

#include <unicode/uchar.h>
#include <unicode/unistr.h>

#include <charconv>
#include <optional>
#include <tuple>
#include <vector>

namespace Kedrin::ModTool {

namespace {

/// A split reference: the book's name, and the numbers after it, without spaces and with ":" and "-" as the
/// only separators.
struct Parts
{
    std::string name;
    std::string numbers;
};

char16_t simplified(char16_t unit)
{
    if (u_isUWhiteSpace(unit))
        return u' ';
    if (unit == u'.' || unit == u',')
        return u':';
    if (unit >= u'\u2010' && unit <= u'\u2015')
        return u'-';
    return unit;
}

bool isDigit(char16_t unit) { return unit >= u'0' && unit <= u'9'; }

Parts partsOf(const std::string& reference)
{
    const icu::UnicodeString text = icu::UnicodeString::fromUTF8(reference);
    int32_t end = text.length(); // of the name
    for (int32_t i = end; i > 0;) {
        const char16_t unit = simplified(text.charAt(--i));
        if (isDigit(unit))
            end = i;
        else if (unit != u' ' && unit != u':' && unit != u'-')
            break;
    }
    Parts parts;
    icu::UnicodeString name = text.tempSubStringBetween(0, end);
    name.trim().toUTF8String(parts.name);
    for (int32_t i = end; i < text.length(); ++i)
        if (const char16_t unit = simplified(text.charAt(i)); unit != u' ')
            parts.numbers += static_cast<char>(unit); // digits and signs only
    return parts;
}

/// Chapter and optional verse; from 1.
struct Point
{
    unsigned int chapter = 0;
    std::optional<unsigned int> verse;
};

class CNumbers
{
public:
    explicit CNumbers(const std::string& numbers) : m_at(numbers.data()), m_end(m_at + numbers.size()) {}

    /// False if the text is malformed.
    bool read(std::vector<Point>& points)
    {
        do {
            Point point;
            if (!number(point.chapter))
                return false;
            if (accept(':') && !number(point.verse.emplace()))
                return false;
            points.push_back(point);
        } while (accept('-'));
        return m_at == m_end && points.size() <= 2;
    }

private:
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
};

class CResolver
{
public:
    CResolver(const CModuleReader& module, unsigned int book) : m_module(module), m_book(book) {}

    VerseRange resolve(Point first, Point last)
    {
        if (chaptersCount() == 1 && !first.verse && !last.verse && last.chapter > 1) {
            first = {1, first.chapter};
            last = {1, last.chapter};
        }
        if (first.verse && !last.verse)
            last = {first.chapter, last.chapter};
        const bool whole = !first.verse && !last.verse;
        const auto [firstChapter, firstVerse] = validated({first.chapter, first.verse.value_or(1)});
        const auto [lastChapter, lastVerse] =
            validated({last.chapter, last.verse ? last.verse : versesIn(last.chapter)});
        return {m_book, firstChapter, firstVerse, lastChapter, lastVerse, whole};
    }

    VerseRange wholeBook() { return resolve({1, {}}, {chaptersCount(), {}}); }

private:
    unsigned int chaptersCount() const { return m_module.structure().chaptersCount(m_book); }

    unsigned int versesIn(unsigned int chapter) const
    {
        if (chapter < 1 || chapter > chaptersCount())
            throw CNotFound(message("%s has %s; there is no chapter %s", m_module.bookLabel(m_book),
                                    counted(chaptersCount(), "chapter", "chapters"), chapter));
        return m_module.structure().versesCount(m_book, chapter - 1);
    }

    /// Indices from 0.
    std::pair<unsigned int, unsigned int> validated(Point point) const
    {
        const unsigned int count = versesIn(point.chapter);
        if (*point.verse < 1 || *point.verse > count)
            throw CNotFound(message("%s has %s; there is no verse %s",
                                    m_module.bookLabel(m_book) + ' ' + std::to_string(point.chapter),
                                    counted(count, "verse", "verses"), *point.verse));
        return {point.chapter - 1, *point.verse - 1};
    }

    const CModuleReader& m_module;
    unsigned int m_book;
};

} // namespace

bool VerseRange::holds(const Tolvo::CRef& local) const
{
    const auto position = std::tuple(local.chapter(), local.verse());
    return local.bookID() == book && position >= std::tuple(firstChapter, firstVerse) &&
           position <= std::tuple(lastChapter, lastVerse);
}

VerseRange parseReference(const std::string& reference, const CModuleReader& module)
{
    const Parts parts = partsOf(reference);
    std::vector<Point> points;
    if (parts.name.empty() || (!parts.numbers.empty() && !CNumbers(parts.numbers).read(points)))
        throw CNotFound(message("\"%s\" is not a reference", reference));
    CResolver resolver(module, CBookLookup(module).find(parts.name));
    if (points.empty())
        return resolver.wholeBook();
    const VerseRange range = resolver.resolve(points.front(), points.back());
    if (std::tuple(range.firstChapter, range.firstVerse) > std::tuple(range.lastChapter, range.lastVerse))
        throw CNotFound(message("\"%s\" ends before it begins", reference));
    return range;
}

} // namespace Kedrin::ModTool
