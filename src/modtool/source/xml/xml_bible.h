#pragma once

#include "source_bible.h"
#include "verse_collector.h"
#include "xml_reader.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace Kedrin::ModTool {

/// Base of the readers of formats that are XML: reads one document to its end, gives its text to the collector, and
/// holds the place reached. A format says what its elements mean. Every letter of the document is accounted for.
class CXmlBible
{
public:
    CXmlBible(const CXmlBible&) = delete;
    CXmlBible& operator=(const CXmlBible&) = delete;

    /// Reads the document.
    /// @returns its letters and digits
    /// @throws CBuildError
    ///     what CXmlReader, CVerseCollector and proveXmlLetters() throw
    ///     "%s:%u: the root element is %s, not %s"
    std::uint64_t read();

protected:
    /// How the format names things in its messages.
    struct Names
    {
        const char* root; ///< the name of the root element
        const char* book; ///< "<book>"
    };

    /// @param fileName  for messages; it, `utf8` and `verses` outlive this object
    CXmlBible(const std::string& fileName, std::string_view utf8, CVerseCollector& verses, Names names)
        : m_xml(fileName, utf8),
          m_verses(verses),
          m_utf8(utf8),
          m_names(names)
    {}
    virtual ~CXmlBible() = default;

    /// The root element.
    virtual void readRoot() {}

    /// An element inside the root. What reads on to its end, such as leaveOut(), has no end().
    virtual void start(const std::string& name) = 0;

    /// The end of an element, also of an empty one.
    virtual void end(const std::string& name) = 0;

    void beginBook(std::string_view osis);

    /// Begins a book that nobody knows (see CVerseCollector).
    /// @param complaint  for the user; the file and the line are put in front
    void beginUnknownBook(const std::string& name, const std::string& complaint, std::size_t line);

    /// @param number  as the source writes it; one that is none is the next
    void beginChapter(const std::string& number);

    /// @param number  as the source writes it; without one, the verse goes on with that before it
    /// @param last    the last verse of a range, where the source writes it apart; "" for none
    /// @throws CBuildError  "%s:%u: a verse before any %s"
    void beginVerse(const std::string& number, const std::string& last = "");

    /// Reads to the end of the element that was begun; its text does not come into the verses, and is counted.
    void leaveOut(ReaderRule reason);

    CXmlReader m_xml;
    CVerseCollector& m_verses;

private:
    void requireBook() const;

    std::string_view m_utf8;
    Names m_names;
    bool m_hasBook = false;
    std::optional<unsigned int> m_chapter; ///< of the book; nothing before its first one
};

/// The Bible of a document that holds all of it.
/// @tparam Format  a class made of CXmlBible's first three arguments
/// @throws CBuildError  what `Format` throws; "%s: contains no verses"
template <typename Format>
SourceBible readXmlBible(const std::string& fileName, std::string_view utf8)
{
    CVerseCollector verses;
    const std::uint64_t letters = Format(fileName, utf8, verses).read();
    SourceBible bible = verses.finish(fileName);
    bible.letters = letters;
    return bible;
}

} // namespace Kedrin::ModTool
