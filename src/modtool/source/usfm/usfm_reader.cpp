#include "usfm_reader.h"

#include "ascii.h"
#include "book_ids.h"
#include "errors.h"
#include "messages.h"
#include "module_format.h"
#include "usfm_letters.h"
#include "usfm_markers.h"
#include "usfm_skipped_part.h"
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
          m_verses(verses),
          m_skipped(verses)
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
    void text(std::string_view content)
    {
        if (content.ends_with(byteOrderMark)) // of a concatenated file
            content.remove_suffix(byteOrderMark.size());
        const std::string_view whole = content;
        if (m_openCharacters > 0)
            content = content.substr(0, attributesBegin(content, m_tokens.nextEndMarker()));
        if (m_skipped.isOpen())
            return m_skipped.text(content, whole, m_line);
        m_verses.addText(plainUsfm(content), m_line);
        m_verses.leaveOut(ReaderRule::attribute, whole.substr(content.size()));
    }

    void marker(std::string_view name)
    {
        const UsfmMarker kind = classify(name);
        if (m_skipped.goesOnAfter(kind, name, m_line)) {
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
            return m_skipped.beginTitle(name);
        case UsfmMarker::canonicalTitle:
            return m_verses.beginTitle();
        case UsfmMarker::outside:
            return m_skipped.beginToParagraph(ReaderRule::outside);
        case UsfmMarker::sidebar:
            return m_skipped.beginSidebar();
        case UsfmMarker::note:
            return m_skipped.beginToEndMarker(name, ReaderRule::note);
        case UsfmMarker::secondNumber:
            return m_skipped.beginToEndMarker(name, ReaderRule::secondNumber);
        case UsfmMarker::figure:
            return m_skipped.beginToEndMarker(name, ReaderRule::figure);
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

    void endMarker(std::string_view name)
    {
        if (marksWords(name))
            m_verses.endWord();
        if (m_skipped.endsAt(name))
            m_verses.addGap();
        else if (!m_skipped.isOpen() && m_openCharacters > 0)
            --m_openCharacters;
    }

    void book()
    {
        const std::string_view code = m_tokens.word();
        const std::string_view rest = m_tokens.restOfLine();
        const std::string osis = osisOfUsfmLine(code, rest);
        m_verses.leaveOut(ReaderRule::metadata, rest);
        m_skipped.beginBook();
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

    const std::string& m_fileName;
    CUsfmTokens m_tokens;
    CVerseCollector& m_verses;
    std::size_t m_line = 1;
    std::optional<unsigned int> m_chapter; ///< nothing before any book
    bool m_hasChapter = false;             ///< whether the book has a chapter marker
    /// Number of open character markers: attributes may follow after '|'.
    unsigned int m_openCharacters = 0;
    CUsfmSkippedPart m_skipped;
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
