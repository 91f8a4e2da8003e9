#include "reference_parser.h"

#include "errors.h"
#include "messages.h"
#include "reference_numbers.h"

#include <unicode/uchar.h>
#include <unicode/unistr.h>

#include <algorithm>
#include <optional>
#include <tuple>
#include <utility>
#include <vector>

namespace Kedrin::ModTool {

namespace {

/// A split reference: the book's name, and the numbers after it, without spaces and with ":", ","
/// and "-" as the only separators.
struct Parts
{
    std::string name;
    std::string numbers;
};

char16_t simplified(char16_t unit)
{
    if (u_isUWhiteSpace(unit))
        return u' ';
    if (unit == u'.')
        return u':';
    if (unit >= u'\u2010' && unit <= u'\u2015')
        return u'-';
    return unit;
}

bool isDigit(char16_t unit) { return unit >= u'0' && unit <= u'9'; }

Parts partsOf(const icu::UnicodeString& text)
{
    int32_t end = text.length(); // of the name
    for (int32_t i = end; i > 0;) {
        const char16_t unit = simplified(text.charAt(--i));
        if (isDigit(unit))
            end = i;
        else if (unit != u' ' && unit != u':' && unit != u',' && unit != u'-')
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

class CResolver
{
public:
    CResolver(const CModuleReader& module, unsigned int book) : m_module(module), m_book(book) {}

    VerseRange resolve(ReferenceSpan span)
    {
        auto& [first, last] = span;
        if (chaptersCount() == 1 && !first.verse && !last.verse && last.chapter > 1) {
            first = {1, first.chapter};
            last = {1, last.chapter};
        }
        const bool whole = !first.verse && !last.verse;
        const auto [firstChapter, firstVerse] = validated({first.chapter, first.verse.value_or(1)});
        const auto [lastChapter, lastVerse] =
            validated({last.chapter, last.verse ? last.verse : versesIn(last.chapter)});
        return {m_book, firstChapter, firstVerse, lastChapter, lastVerse, whole};
    }

    VerseRange wholeBook() { return resolve({{1, {}}, {chaptersCount(), {}}}); }

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
    std::pair<unsigned int, unsigned int> validated(ReferencePoint point) const
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

/// Reads references that ";" divides, one after another.
class CReferenceReader
{
public:
    explicit CReferenceReader(const CModuleReader& module) : m_module(module), m_books(module) {}

    /// Adds the ranges of one reference.
    void read(const icu::UnicodeString& text)
    {
        text.toUTF8String(m_reference = "");
        const Parts parts = partsOf(text);
        const auto spans = parseReferenceNumbers(parts.numbers);
        if (parts.numbers.empty() ? parts.name.empty() : !spans)
            throw CNotFound(message("\"%s\" is not a reference", m_reference));
        if (parts.numbers.empty())
            return readBooks(parts.name);
        if (!parts.name.empty())
            m_book = m_books.find(parts.name);
        if (!m_book)
            throw CNotFound(message("\"%s\" does not name a book (for example: %s)", m_reference,
                                    m_module.bookLabel(0) + ' ' + m_reference));
        for (const ReferenceSpan& span : *spans)
            add(CResolver(m_module, *m_book).resolve(span));
    }

    std::vector<VerseRange> ranges() && { return std::move(m_ranges); }

private:
    void add(const VerseRange& range)
    {
        if (std::tuple(range.firstChapter, range.firstVerse) > std::tuple(range.lastChapter, range.lastVerse))
            throw CNotFound(message("\"%s\" ends before it begins", m_reference));
        m_ranges.push_back(range);
    }

    /// A book, or two with a dash between; a dash may also be part of a name.
    void readBooks(const std::string& name)
    {
        try {
            m_book = m_books.find(name);
            m_ranges.push_back(CResolver(m_module, *m_book).wholeBook());
        } catch (const CNotFound&) {
            if (!readBooksBetween(icu::UnicodeString::fromUTF8(name)))
                throw;
        }
    }

    bool readBooksBetween(const icu::UnicodeString& names)
    {
        int32_t dash = 0;
        while (dash < names.length() && simplified(names.charAt(dash)) != u'-')
            ++dash;
        if (dash == 0 || dash + 1 >= names.length())
            return false;
        std::string first, last;
        names.tempSubStringBetween(0, dash).toUTF8String(first);
        names.tempSubStringBetween(dash + 1).toUTF8String(last);
        const unsigned int firstBook = m_books.find(first), lastBook = m_books.find(last);
        if (firstBook > lastBook)
            throw CNotFound(message("\"%s\" ends before it begins", m_reference));
        for (unsigned int book = firstBook; book <= lastBook; ++book)
            m_ranges.push_back(CResolver(m_module, book).wholeBook());
        m_book = lastBook;
        return true;
    }

    const CModuleReader& m_module;
    CBookLookup m_books;
    std::string m_reference;            ///< being read
    std::optional<unsigned int> m_book; ///< of the reference before
    std::vector<VerseRange> m_ranges;
};

} // namespace

bool VerseRange::holds(const Tolvo::CRef& local) const
{
    const auto position = std::tuple(local.chapter(), local.verse());
    return local.bookID() == book && position >= std::tuple(firstChapter, firstVerse) &&
           position <= std::tuple(lastChapter, lastVerse);
}

bool holds(const std::vector<VerseRange>& ranges, const Tolvo::CRef& local)
{
    return std::any_of(ranges.begin(), ranges.end(),
                       [&](const VerseRange& range) { return range.holds(local); });
}

std::vector<VerseRange> parseReferences(const std::string& references, const CModuleReader& module)
{
    CReferenceReader reader(module);
    const icu::UnicodeString text = icu::UnicodeString::fromUTF8(references);
    for (int32_t begin = 0; begin <= text.length();) {
        int32_t end = text.indexOf(u';', begin);
        end = end < 0 ? text.length() : end;
        icu::UnicodeString reference = text.tempSubStringBetween(begin, end);
        const bool isBlankEnd = begin != 0 && end == text.length() && reference.trim().isEmpty();
        if (!isBlankEnd) // "Йоан 3:16;"
            reader.read(begin == 0 && end == text.length() ? text : reference.trim());
        begin = end + 1;
    }
    return std::move(reader).ranges();
}

} // namespace Kedrin::ModTool
