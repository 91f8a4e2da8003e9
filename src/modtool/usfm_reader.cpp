#include "usfm_reader.h"

#include "book_ids.h"
#include "book_names.h"
#include "build_error.h"
#include "messages.h"
#include "text_input.h"
#include "usfm_markers.h"
#include "usfm_tokens.h"
#include "verse_collector.h"

#include <algorithm>
#include <optional>

namespace Kedrin::ModTool {

namespace {

constexpr std::string_view byteOrderMark = "\uFEFF";

/// The text without the signs that stand for a blank or for a place where a line may be broken.
std::string plainText(std::string_view text)
{
    std::string plain;
    plain.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool isLineBreak = text[i] == '/' && text.substr(i + 1).starts_with('/');
        plain += text[i] == '~' || isLineBreak ? ' ' : text[i];
        i += isLineBreak ? 1 : 0;
    }
    return plain;
}

/// Whether a text is attributes with their names: `lemma="x" strong='H1'`.
bool areAttributes(std::string_view text)
{
    constexpr std::string_view blanks = " \t\r\n";
    bool hasAny = false;
    for (;;) {
        text.remove_prefix(std::min(text.find_first_not_of(blanks), text.size()));
        if (text.empty())
            return hasAny;
        const std::size_t equals = text.find('=');
        if (equals == 0 || equals == std::string_view::npos ||
            text.substr(0, equals).find_first_of("\"'|") != std::string_view::npos)
            return false;
        text.remove_prefix(equals + 1);
        text.remove_prefix(std::min(text.find_first_not_of(blanks), text.size()));
        const std::size_t end = text.empty() || (text[0] != '"' && text[0] != '\'') ? std::string_view::npos
                                                                                    : text.find(text[0], 1);
        if (end == std::string_view::npos)
            return false;
        text.remove_prefix(end + 1);
        hasAny = true;
    }
}

/// Where the attributes in a text before an end marker begin, at their '|'; npos where it has none. Markers that have
/// an attribute without a name take anything for it.
std::size_t attributesBegin(std::string_view text, std::string_view endMarker)
{
    if (endMarker.empty())
        return std::string_view::npos;
    const std::size_t bar = hasUnnamedAttribute(endMarker) ? text.find('|') : text.rfind('|');
    const bool isAny = hasUnnamedAttribute(endMarker);
    return bar != std::string_view::npos && (isAny || areAttributes(text.substr(bar + 1)))
               ? bar
               : std::string_view::npos;
}

/// Walks one file.
class CFile
{
public:
    CFile(const std::string& fileName, std::string_view utf8, CVerseCollector& verses)
        : m_fileName(fileName),
          m_tokens(utf8),
          m_verses(verses)
    {}

    void read()
    {
        for (UsfmToken token = m_tokens.next(); token.kind != UsfmToken::Kind::none;
             token = m_tokens.next()) {
            m_line = token.line;
            if (token.kind == UsfmToken::Kind::text)
                text(token.text);
            else if (token.kind == UsfmToken::Kind::marker)
                marker(token.name);
            else if (token.kind == UsfmToken::Kind::endMarker)
                endMarker(token.name);
        }
        m_verses.endTitle();
        m_verses.endVerse();
    }

private:
    enum class Skip
    {
        nothing,
        toMarker,    ///< to the end marker m_skipped
        toParagraph, ///< to a marker that ends paragraphs
        toSidebarEnd
    };

    void text(std::string_view content)
    {
        if (content.ends_with(byteOrderMark)) // of a file that was put behind another one
            content.remove_suffix(byteOrderMark.size());
        if (m_openCharacters > 0)
            content = content.substr(0, attributesBegin(content, m_tokens.nextEndMarker()));
        if (m_skip == Skip::nothing) {
            m_verses.addText(plainText(content), m_line);
            return;
        }
        if (!m_skipCounted && !isBlank(content)) {
            m_verses.found(m_skipReason, m_line);
            m_skipCounted = true;
        }
        if (m_takesTitle && m_noteInTitle.empty())
            m_verses.titles().fullTitle += plainText(content);
    }

    void marker(std::string_view name)
    {
        const UsfmMarker kind = classify(name);
        if (m_takesTitle && kind == UsfmMarker::note)
            m_noteInTitle = name;
        if (!stopsSkipping(kind, name))
            return;
        if (endsParagraph(kind)) {
            m_openCharacters = 0;
            m_verses.endWord();
            m_verses.endTitle();
            m_verses.addBreak();
        }
        switch (kind) {
        case UsfmMarker::id:
            return book();
        case UsfmMarker::chapter:
            return chapter();
        case UsfmMarker::verse:
            return verse();
        case UsfmMarker::field:
            return field(name);
        case UsfmMarker::title:
            return title(name);
        case UsfmMarker::canonicalTitle:
            return m_verses.beginTitle();
        case UsfmMarker::outside:
            return skip(Skip::toParagraph, ReaderRule::outside);
        case UsfmMarker::sidebar:
            return skip(Skip::toSidebarEnd, ReaderRule::outside);
        case UsfmMarker::note:
            return skipTo(name, ReaderRule::note);
        case UsfmMarker::secondNumber:
            return skipTo(name, ReaderRule::secondNumber);
        case UsfmMarker::figure:
            return skipTo(name, ReaderRule::figure);
        case UsfmMarker::cell:
            return m_verses.addBreak();
        case UsfmMarker::unknown:
            m_verses.found(ReaderRule::unknownMarker, m_line);
            [[fallthrough]];
        case UsfmMarker::character:
            ++m_openCharacters;
            if (marksWords(name))
                m_verses.beginWord();
            return;
        case UsfmMarker::paragraph:
            return;
        }
    }

    /// Whether the marker is to be heeded: what is skipped ends here, or nothing is skipped.
    bool stopsSkipping(UsfmMarker kind, std::string_view name)
    {
        const bool beginsPart = kind == UsfmMarker::id || kind == UsfmMarker::chapter;
        if (m_skip == Skip::nothing || (m_skip == Skip::toSidebarEnd && !beginsPart && name != "esbe"))
            return m_skip == Skip::nothing;
        if (!endsParagraph(kind))
            return false;
        if (m_skip == Skip::toMarker)
            m_verses.found(ReaderRule::unfinishedNote, m_line);
        endSkipping();
        return true;
    }

    void endMarker(std::string_view name)
    {
        if (name == m_noteInTitle)
            m_noteInTitle.clear();
        if (marksWords(name))
            m_verses.endWord();
        if (m_skip == Skip::toMarker && name == m_skipped) {
            endSkipping();
            m_verses.addGap();
        } else if (m_skip == Skip::nothing && m_openCharacters > 0)
            --m_openCharacters;
    }

    void skip(Skip how, ReaderRule reason)
    {
        m_skip = how;
        m_skipReason = reason;
        m_skipCounted = false;
    }

    void skipTo(std::string_view name, ReaderRule reason)
    {
        skip(Skip::toMarker, reason);
        m_skipped = name;
    }

    void endSkipping()
    {
        m_skip = Skip::nothing;
        if (m_takesTitle)
            m_verses.titles().fullTitle += ' ';
        m_takesTitle = false;
        m_noteInTitle.clear();
    }

    void book()
    {
        const std::string_view code = m_tokens.word();
        const std::string_view rest = m_tokens.restOfLine();
        const std::string osis = bookOf(code, rest);
        m_mainTitle = false;
        m_verses.beginBook(osis);
        m_verses.beginChapter();
        m_hasChapter = false;
        m_chapter = 1; // a book of one chapter may go without its marker
    }

    /// The OSIS id by the book's code or, where that is none, by a name in its place.
    std::string bookOf(std::string_view code, std::string_view rest)
    {
        const std::string osis = osisOfUsfm(code);
        if (!osis.empty() && !isUsfmCode(osis)) // one of the standard's
            return osis;
        const std::string line = std::string(code) + ' ' + std::string(rest);
        for (const std::string& named : {osisOfName(code), osis, osisOfName(line)})
            if (!named.empty()) {
                if (named != osis)
                    m_verses.found(ReaderRule::bookByName, m_line);
                return named;
            }
        refuse(m_fileName, m_line,
               message("%s is no book code: write one behind \\id, such as GEN", inQuotes(code)));
    }

    void chapter()
    {
        if (!m_chapter)
            refuse(m_fileName, m_line,
                   tr("a chapter before any \\id: write one with the book's code, such as \\id GEN"));
        const auto number = parseVerseNumber(m_tokens.number());
        m_verses.beginChapter();
        if (!number)
            m_verses.found(ReaderRule::chapterWithoutNumber, m_line);
        m_chapter = number ? number->first : nextChapter();
        m_hasChapter = true;
    }

    unsigned int nextChapter() const { return m_hasChapter ? std::min(*m_chapter + 1, maxSourceNumber) : 1; }

    void verse()
    {
        if (!m_chapter)
            refuse(m_fileName, m_line,
                   tr("a verse before any \\id: write one with the book's code, such as \\id GEN"));
        if (const auto number = parseVerseNumber(m_tokens.number()))
            m_verses.beginVerse(*m_chapter, *number, m_line);
        else
            m_verses.beginVerseWithoutNumber(std::max(*m_chapter, 1u), m_line);
    }

    void field(std::string_view name)
    {
        const std::string content = plainText(m_tokens.restOfLine());
        if (!m_verses.inBook())
            return;
        BookTitles& titles = m_verses.titles();
        if (name == "toc1")
            titles.fullTitle = content;
        else if (name == "toc2" || (name == "h" && titles.shortTitle.empty()))
            titles.shortTitle = content;
        else if (name == "toc3")
            titles.abbreviatedTitle = content;
        else if (name == "rem" && !isBlank(content))
            m_verses.found(ReaderRule::outside, m_line);
    }

    void title(std::string_view name)
    {
        const bool isMain = baseName(name) == "mt" && m_verses.inBook();
        if (isMain && isBlank(m_verses.titles().fullTitle))
            m_mainTitle = true;
        skip(Skip::toParagraph, ReaderRule::title);
        m_takesTitle = isMain && m_mainTitle;
    }

    const std::string& m_fileName;
    CUsfmTokens m_tokens;
    CVerseCollector& m_verses;
    std::size_t m_line = 1;
    std::optional<unsigned int> m_chapter; ///< nothing before any book
    bool m_hasChapter = false;             ///< whether the book has a marker of one
    unsigned int m_openCharacters =
        0; ///< character markers without their end: attributes may follow after '|'
    Skip m_skip = Skip::nothing;
    std::string m_skipped;
    ReaderRule m_skipReason = ReaderRule::note;
    bool m_skipCounted = false;
    bool m_mainTitle = false;  ///< the book's full title is taken from its main title
    bool m_takesTitle = false; ///< what is skipped is part of it
    std::string m_noteInTitle; ///< end marker of a note in it
};

} // namespace

class CUsfmReader::CPrivate
{
public:
    CVerseCollector verses;
};

CUsfmReader::CUsfmReader() : m_private(std::make_unique<CPrivate>()) {}
CUsfmReader::~CUsfmReader() = default;

void CUsfmReader::read(const std::string& fileName, std::string_view utf8)
{
    CFile(fileName, utf8, m_private->verses).read();
}

SourceBible CUsfmReader::finish(const std::string& source)
{
    SourceBible bible = m_private->verses.finish();
    if (bible.verses.empty())
        throw CBuildError(message("%s: holds no verse", source));
    return bible;
}

} // namespace Kedrin::ModTool
