#include "usfm_reader.h"

#include "ascii.h"
#include "book_ids.h"
#include "errors.h"
#include "messages.h"
#include "module_format.h"
#include "usfm_letters.h"
#include "usfm_markers.h"
#include "usfm_tokens.h"
#include "verse_collector.h"

#include <algorithm>
#include <optional>

namespace Kedrin::ModTool {

namespace {

constexpr std::string_view byteOrderMark = "\uFEFF";

/// Reads one file.
class CUsfmFileReader
{
public:
    CUsfmFileReader(const std::string& fileName, std::string_view utf8, CVerseCollector& verses)
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
            else
                m_verses.leaveOut(ReaderRule::attribute, token.text);
        }
        m_verses.endTitle();
        m_verses.endVerse();
    }

private:
    enum class Skip
    {
        nothing,
        toMarker,    ///< up to the end marker m_skipped
        toParagraph, ///< up to a marker that ends paragraphs
        toSidebarEnd
    };

    void text(std::string_view content)
    {
        if (content.ends_with(byteOrderMark)) // of a concatenated file
            content.remove_suffix(byteOrderMark.size());
        const std::string_view whole = content;
        if (m_openCharacters > 0)
            content = content.substr(0, attributesBegin(content, m_tokens.nextEndMarker()));
        if (m_skip == Skip::nothing) {
            m_verses.addText(plainUsfm(content), m_line);
            m_verses.leaveOut(ReaderRule::attribute, whole.substr(content.size()));
            return;
        }
        m_verses.leaveOut(m_skipReason, whole);
        if (!m_skipCounted && !isBlank(content)) {
            m_verses.found(m_skipReason, m_line);
            m_skipCounted = true;
        }
        if (m_takesTitle && m_noteInTitle.empty())
            m_verses.titles().fullTitle += plainUsfm(content);
    }

    void marker(std::string_view name)
    {
        const UsfmMarker kind = classify(name);
        if (m_takesTitle && kind == UsfmMarker::note)
            m_noteInTitle = name;
        if (!stopsSkipping(kind, name)) {
            if (kind == UsfmMarker::verse)
                m_tokens.number(); // of a sidebar
            return;
        }
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

    /// Whether to process the marker; may end skipping.
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
        const std::string osis = osisOfUsfmLine(code, rest);
        m_verses.leaveOut(ReaderRule::metadata, rest);
        m_mainTitle = false;
        const bool isKnown = isKnownOsisId(osis) || isUsfmSideMatter(osis);
        if (!isKnown)
            m_verses.beginUnknownBook(
                code,
                atLine(m_fileName, m_line,
                       message("%s is not a book code: write one after \\id, such as GEN", inQuotes(code))));
        else
            m_verses.beginBook(osis);
        m_verses.beginChapter();
        if (isKnown && osis != osisOfUsfm(code))
            m_verses.found(ReaderRule::bookByName, m_line);
        m_hasChapter = false;
        m_chapter = 1; // the marker may be missing in a book of one chapter
    }

    void chapter()
    {
        if (!m_chapter)
            failAtLine(m_fileName, m_line,
                       tr("a chapter before any \\id: write an \\id with the book's code, such as \\id GEN"));
        const auto number = parseVerseNumber(m_tokens.number());
        m_chapter = number ? number->first : nextChapter();
        m_hasChapter = true;
        m_verses.beginChapter(*m_chapter);
        if (!number)
            m_verses.found(ReaderRule::chapterWithoutNumber, m_line);
    }

    unsigned int nextChapter() const { return m_hasChapter ? std::min(*m_chapter + 1, maxSourceNumber) : 1; }

    void verse()
    {
        if (!m_chapter)
            failAtLine(m_fileName, m_line,
                       tr("a verse before any \\id: write an \\id with the book's code, such as \\id GEN"));
        if (const auto number = parseVerseNumber(m_tokens.number()))
            m_verses.beginVerse(*m_chapter, *number, m_line);
        else
            m_verses.beginVerseWithoutNumber(std::max(*m_chapter, 1u), m_line);
    }

    void field(std::string_view name)
    {
        const std::string_view line = m_tokens.restOfLine();
        m_verses.leaveOut(name == "rem" ? ReaderRule::outside : ReaderRule::metadata, line);
        const std::string content = plainUsfm(line);
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
    bool m_hasChapter = false;             ///< whether the book has a chapter marker
    /// Number of open character markers: attributes may follow after '|'.
    unsigned int m_openCharacters = 0;
    Skip m_skip = Skip::nothing;
    std::string m_skipped;
    ReaderRule m_skipReason = ReaderRule::note;
    bool m_skipCounted = false;
    bool m_mainTitle = false;  ///< the book's full title is taken from its main title
    bool m_takesTitle = false; ///< the skipped text is part of it
    std::string m_noteInTitle; ///< end marker of a note in it
};

} // namespace

class CUsfmReader::Impl
{
public:
    CVerseCollector verses;
    std::uint64_t letters = 0;
};

CUsfmReader::CUsfmReader() : m_impl(std::make_unique<Impl>()) {}
CUsfmReader::~CUsfmReader() = default;

void CUsfmReader::read(const std::string& fileName, std::string_view utf8, const std::string& shownName)
{
    m_impl->verses.setFile(shownName);
    CUsfmFileReader(fileName, utf8, m_impl->verses).read();
    m_impl->letters += proveUsfmLetters(fileName, utf8, m_impl->verses.takeLetters());
}

SourceBible CUsfmReader::finish(const std::string& source)
{
    SourceBible bible = m_impl->verses.finish(source);
    bible.letters = m_impl->letters;
    return bible;
}

} // namespace Kedrin::ModTool
