#include "usfm_reader.h"

#include "book_ids.h"
#include "build_error.h"
#include "messages.h"
#include "text_input.h"
#include "usfm_markers.h"
#include "usfm_tokens.h"
#include "verse_collector.h"

namespace Kedrin::ModTool {

namespace {

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
        if (m_openCharacters > 0 && m_tokens.isAtEndMarker())
            content = content.substr(0, content.find('|'));
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
        const std::string osis = osisOfUsfm(code);
        if (osis.empty())
            refuse(m_fileName, m_line, message("%s is no book code", inQuotes(code)));
        m_tokens.restOfLine();
        m_mainTitle = false;
        m_verses.beginBook(osis);
        m_verses.beginChapter();
        m_chapter = 1; // a book of one chapter may go without its marker
    }

    void chapter()
    {
        const std::string_view word = m_tokens.word();
        const auto number = parseVerseNumber(word);
        if (!number || number->first == 0 || number->first != number->last)
            refuse(m_fileName, m_line, message("%s is no chapter number", inQuotes(word)));
        if (m_chapter == 0)
            refuse(m_fileName, m_line, tr("a chapter before any \\id"));
        m_chapter = number->first;
        m_verses.beginChapter();
    }

    void verse()
    {
        const std::string_view word = m_tokens.word();
        const auto number = parseVerseNumber(word);
        if (!number)
            refuse(m_fileName, m_line, message("%s is no verse number", inQuotes(word)));
        if (m_chapter == 0)
            refuse(m_fileName, m_line, tr("a verse before any \\id"));
        m_verses.beginVerse(m_chapter, *number, m_line);
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
    unsigned int m_chapter = 0;
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
