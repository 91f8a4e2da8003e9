#include "verse_line_reader.h"

#include "ascii.h"
#include "book_finder.h"
#include "book_ids.h"
#include "errors.h"
#include "letters.h"
#include "messages.h"
#include "module_format.h"
#include "unknown_books.h"
#include "verse_line_header.h"

#include <algorithm>
#include <charconv>
#include <unordered_map>

namespace Kedrin::ModTool {

namespace {

constexpr std::size_t maxBookIdBytes = 16;

bool isBookId(std::string_view text)
{
    const auto isIdByte = [](char c) { return isAsciiLetter(c) || isAsciiDigit(c); };
    return !text.empty() && text.size() <= maxBookIdBytes && std::all_of(text.begin(), text.end(), isIdByte);
}

/// Letters and digits of the comments and of the text after the third tab of the other lines.
std::uint64_t lettersOfLines(std::string_view content)
{
    std::uint64_t count = 0;
    int tabs = 0;
    for (std::size_t i = 0; i < content.size();) {
        const bool isText = tabs == 3 || content[i] == '#';
        const std::size_t stop = isText ? content.find('\n', i) : content.find_first_of("\t\n", i);
        const std::size_t end = std::min(stop, content.size() - 1) + 1;
        if (isText)
            count += countLetters(content.substr(i, end - i));
        tabs = content[end - 1] == '\t' && !isText ? tabs + 1 : 0;
        i = end;
    }
    return count;
}

class CVerseLineParser
{
public:
    CVerseLineParser(const std::string& fileName, std::string utf8) : m_fileName(fileName)
    {
        m_bible.text = std::move(utf8);
    }

    SourceBible parse()
    {
        const std::string_view content(m_bible.text);
        std::size_t begin = 0;
        while (begin < content.size()) {
            const std::size_t end = std::min(content.find('\n', begin), content.size());
            std::string_view line = content.substr(begin, end - begin);
            if (line.ends_with('\r'))
                line.remove_suffix(1);
            ++m_line;
            if (!isBlank(line))
                addLine(line);
            begin = end + 1;
        }
        if (m_bible.verses.empty())
            throw CBuildError(message("%s: contains no verses", m_fileName));
        sortVerses();
        m_header.giveTo(m_bible);
        m_bible.letters = lettersOfLines(content);
        return std::move(m_bible);
    }

private:
    [[noreturn]] void fail(const std::string& what, unsigned int line) const
    {
        throw CBuildError(m_fileName + ':' + std::to_string(line) + ": " + what);
    }
    [[noreturn]] void fail(const std::string& what) const { fail(what, m_line); }

    void addLine(std::string_view line)
    {
        if (line.starts_with('#') && m_bible.verses.empty()) {
            takeHeaderLine(line);
            return;
        }
        const std::string_view book = field(line);
        const std::string_view chapter = field(line);
        const std::string_view verse = field(line);
        m_bible.verses.push_back({bookIndex(book),
                                  number(chapter, translatable("%s is not a chapter number from 1 to %s")),
                                  number(verse, translatable("%s is not a verse number from 1 to %s")),
                                  static_cast<std::uint32_t>(line.data() - m_bible.text.data()),
                                  static_cast<std::uint32_t>(line.size()), m_line});
    }

    void takeHeaderLine(std::string_view line)
    {
        m_bible.findings.addLetters(ReaderRule::metadata, countLetters(line));
        try {
            m_header.take(line);
        } catch (const CBuildError& ex) {
            fail(ex.what());
        }
    }

    /// Removes the first field and its tab from the line.
    std::string_view field(std::string_view& line) const
    {
        const std::size_t tab = line.find('\t');
        if (tab == std::string_view::npos)
            fail(tr("a line must be BOOK, CHAPTER, VERSE and text, separated by tabs"));
        const std::string_view first = line.substr(0, tab);
        line.remove_prefix(tab + 1);
        return first;
    }

    std::uint16_t number(std::string_view digits, const char* complaint) const
    {
        unsigned int value = 0;
        const char* end = digits.data() + digits.size();
        const auto [stop, error] = std::from_chars(digits.data(), end, value);
        if (error != std::errc() || stop != end || value < 1 || value > maxSourceNumber)
            fail(message(complaint, inQuotes(digits), maxSourceNumber));
        return static_cast<std::uint16_t>(value);
    }

    std::uint32_t bookIndex(std::string_view osis)
    {
        if (!m_bible.verses.empty() && m_bible.books[m_bible.verses.back().book] == osis)
            return m_bible.verses.back().book;
        const auto [known, isNewName] = m_bookIndices.emplace(osis, 0);
        if (isNewName)
            known->second = indexOfId(bookId(osis));
        return known->second;
    }

    /// The id of a book that may be named otherwise.
    std::string bookId(std::string_view name)
    {
        if (isBookId(name) && isKnownOsisId(name))
            return std::string(name);
        if (std::string osis = bookFinder().find(name); !osis.empty())
            return osis;
        const std::string complaint =
            message("%s is not an OSIS book id", inQuotes(name)) + nearestBook(name);
        if (!isBookId(name))
            fail(complaint);
        const auto index = static_cast<std::uint32_t>(m_bible.books.size()); // which it will have
        m_bible.unknownBooks.push_back({index, atLine(m_fileName, m_line, complaint)});
        return std::string(name);
    }

    std::uint32_t indexOfId(const std::string& osis)
    {
        auto& books = m_bible.books;
        const auto found = std::find(books.begin(), books.end(), osis);
        if (found == books.end() && books.size() >= maxSourceBooks)
            fail(message("more than %s books", maxSourceBooks));
        const auto index = static_cast<std::uint32_t>(found - books.begin());
        if (found == books.end())
            books.push_back(osis);
        return index;
    }

    void sortVerses()
    {
        auto& verses = m_bible.verses;
        const auto before = [](const SourceVerse& a, const SourceVerse& b) {
            return a.position() < b.position();
        };
        if (!std::is_sorted(verses.begin(), verses.end(), before))
            std::stable_sort(verses.begin(), verses.end(), before);
        const SourceVerse* second = nullptr; // the first line of the file that repeats another
        for (std::size_t i = 1; i < verses.size(); ++i)
            if (verses[i - 1].position() == verses[i].position() &&
                (!second || verses[i].line < second->line))
                second = &verses[i];
        if (second)
            fail(message("%s is given twice, first in line %s", m_bible.positionOf(*second),
                         (second - 1)->line),
                 second->line);
    }

    const std::string& m_fileName;
    SourceBible m_bible;
    CVerseLineHeader m_header;
    std::unordered_map<std::string, std::uint32_t> m_bookIndices; ///< by the name in the file
    std::uint32_t m_line = 0;
};

} // namespace

SourceBible readVerseLines(const std::string& fileName, std::string utf8)
{
    return CVerseLineParser(fileName, std::move(utf8)).parse();
}

} // namespace Kedrin::ModTool
