#include "plain_line_reader.h"

#include "ascii.h"
#include "book_finder.h"
#include "errors.h"
#include "global_books.h"
#include "letters.h"
#include "messages.h"
#include "plain_entities.h"
#include "plain_headings.h"

#include <algorithm>
#include <optional>

namespace Kedrin::ModTool {

namespace {

constexpr std::size_t maxHeadingBytes = 160;

/// Whether a line that begins with a digit may be the name of a book: "1 Царе".
bool mayBeBook(std::string_view line)
{
    return line.front() >= '1' && line.front() <= '4' && line.size() <= 40;
}

class CLineReader
{
public:
    CLineReader(const std::string& fileName, VerseForm form, CPlainVerses& verses)
        : m_fileName(fileName),
          m_form(form),
          m_verses(verses)
    {}

    void read(std::string_view utf8)
    {
        while (!utf8.empty()) {
            const std::string_view line = utf8.substr(0, utf8.find('\n'));
            utf8.remove_prefix(std::min(line.size() + 1, utf8.size()));
            ++m_line;
            if (const std::string_view content = trimmed(line); !content.empty())
                m_form == VerseForm::hashed ? hashedLine(content) : plainLine(content);
        }
    }

private:
    void plainLine(std::string_view line)
    {
        if (countLetters(line.substr(0, maxHeadingBytes)) == 0 && countLetters(line) == 0)
            return;
        if (line.starts_with('#') || (m_form == VerseForm::verse && mayBeBook(line)))
            if (const auto found = plainHeading(line))
                return heading(line, *found);
        if (line.starts_with('#'))
            return unknownHeading(line);
        if (const auto start = verseStart(line, m_form))
            return verse(*start, std::string(start->text));
        if (line.size() <= maxHeadingBytes)
            if (const auto found = plainHeading(line))
                return heading(line, *found);
        otherLine(line);
    }

    /// "#p#" and the like mark paragraphs; the text may follow on the same line.
    void hashedLine(std::string_view line)
    {
        for (std::size_t end = markEnd(line); end != 0; end = markEnd(line)) {
            m_verses.leaveOutPlace(line.substr(0, end));
            line.remove_prefix(end);
        }
        if (isBlank(line))
            return;
        if (const auto start = verseStart(line, m_form))
            verse(*start, withoutEntities(start->text));
        else
            bad(line);
    }

    static std::size_t markEnd(std::string_view line)
    {
        constexpr std::size_t maxBytes = 10;
        if (!line.starts_with('#'))
            return 0;
        const std::size_t end = line.substr(0, maxBytes).find('#', 1);
        const auto isMark = [&] {
            return end > 1 && std::all_of(line.begin() + 1, line.begin() + static_cast<std::ptrdiff_t>(end),
                                          isAsciiLetter);
        };
        return end != std::string_view::npos && isMark() ? end + 1 : 0;
    }

    void verse(const VerseStart& start, const std::string& text)
    {
        refuseWaitingHeading();
        if (m_form == VerseForm::reference && !takeBook(start.book))
            return;
        const auto chapter = m_form == VerseForm::verse ? chapterReached() : std::optional(start.chapter);
        if (!chapter)
            return fail(tr("a verse before any chapter: write its heading above, such as Chapter 1"));
        if (!m_verses.beginVerse(*chapter, start.verse, m_line))
            return fail(
                tr("a verse before any book: write its name on a line above, or give it with --book"));
        m_hasVerse = true;
        m_verses.leaveOutPlace(start.place);
        m_verses.addText(text, m_line);
    }

    bool takeBook(std::string_view name)
    {
        if (name != m_lastName || m_lastOsis.empty()) {
            m_lastName = name;
            m_lastOsis = bookFinder().findShort(name);
        }
        if (m_lastOsis.empty())
            return m_verses.beginUnknownBook(name, m_line, [&] { return unknownBook(name); });
        m_verses.beginBook(m_lastOsis, name, m_line);
        return true;
    }

    /// A book of one chapter needs no heading of it.
    std::optional<unsigned int> chapterReached() const
    {
        const auto global = m_chapter ? std::nullopt : globalIDOf(m_verses.book());
        const bool hasOneChapter = global && globalBooks()[*global].verseCounts.size() == 1;
        return hasOneChapter ? std::optional(1u) : m_chapter;
    }

    /// Bad lines come first: one of them may be the heading that is missing.
    void fail(const std::string& what) const
    {
        m_verses.badLines().refuse(m_fileName);
        failAtLine(m_fileName, m_line, what);
    }

    void heading(std::string_view line, const PlainHeading& found)
    {
        if (!found.osis.empty()) {
            m_verses.beginBook(found.osis, found.name, m_line);
            if (m_verses.collector().inBook())
                m_verses.collector().titles().fullTitle = found.name;
            m_waitingLine = 0;
            m_bookLevel = headingLevel(line);
            m_chapter.reset();
        } else {
            refuseWaitingHeading();
        }
        if (found.chapter)
            m_chapter = found.chapter;
        m_hasHeading = true;
        m_verses.leaveOutPlace(line);
    }

    /// Before the first book it is a remark, unless verses or chapters follow at once; below a book's it is the heading
    /// of a part.
    void unknownHeading(std::string_view line)
    {
        const bool isOfPart = m_hasHeading && headingLevel(line) > m_bookLevel;
        if (m_hasHeading && !isOfPart)
            return badHeading(m_line, line);
        m_verses.leaveOut(isOfPart ? ReaderRule::title : ReaderRule::outside, line, m_line);
        if (!isOfPart && m_verses.book().empty()) {
            m_waitingLine = m_line;
            m_waitingHeading = line;
        }
    }

    void refuseWaitingHeading()
    {
        if (m_waitingLine != 0)
            badHeading(m_waitingLine, m_waitingHeading);
        m_waitingLine = 0;
    }

    void badHeading(std::size_t line, std::string_view heading)
    {
        m_verses.badLines().add(line, [&] { return unknownBook(trimmed(heading, " \t#*_=")); });
    }

    void otherLine(std::string_view line)
    {
        if (m_hasVerse || m_hasHeading)
            return bad(line);
        m_verses.leaveOut(ReaderRule::outside, line, m_line);
    }

    void bad(std::string_view line)
    {
        static constexpr const char* examples[] = {"Gen 1:1 text", "1:1 text", "1 text", "#1:1#text"};
        m_verses.badLines().add(m_line, [&] {
            return message("%s is neither a verse, such as \"%s\", nor a heading", inQuotes(line),
                           examples[static_cast<std::size_t>(m_form)]);
        });
    }

    const std::string& m_fileName;
    VerseForm m_form;
    CPlainVerses& m_verses;
    std::size_t m_line = 0;
    std::string_view m_lastName;
    std::string m_lastOsis;
    std::optional<unsigned int> m_chapter;
    std::size_t m_bookLevel = 0;
    std::size_t m_waitingLine = 0; ///< of a heading that may be an unknown book's; 0: none
    std::string_view m_waitingHeading;
    bool m_hasVerse = false;
    bool m_hasHeading = false;
};

} // namespace

void readPlainLines(const std::string& fileName, std::string_view utf8, VerseForm form, CPlainVerses& verses)
{
    CLineReader(fileName, form, verses).read(utf8);
}

} // namespace Kedrin::ModTool
