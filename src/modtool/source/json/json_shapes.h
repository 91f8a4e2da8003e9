#pragma once

#include "json_books.h"
#include "json_references.h"
#include "verse_collector.h"

#include <map>
#include <optional>
#include <set>
#include <string>

namespace Kedrin::ModTool {

/// What the files of one source have in common.
struct JsonSource
{
    CVerseCollector verses;
    std::map<std::string, std::string> books; ///< given as a whole: OSIS id, "file:line"
    std::set<const char*> shapes;             ///< English, for translation
    bool hasBooksByPosition = false;
};

/// A book and a chapter.
struct JsonPosition
{
    std::string book; ///< OSIS id
    BookClues clues;  ///< what identified the book
    std::optional<unsigned int> chapter;
};

/// Reads one document of any structure (doc/formats/json.md) into a source. All strings are passed to the collector
/// in document order.
class CJsonShapes
{
public:
    /// @param source, document  outlive this object
    CJsonShapes(JsonSource& source, const CJsonDocument& document)
        : m_source(source),
          m_verses(source.verses),
          m_document(document)
    {}

    /// @throws CBuildError  as listed for CJsonReader::read()
    void read() { readRoot(m_document.root()); }

private:
    using Kind = JsonValue::Kind;

    /// The rule for a value in a book, chapter or verse that is not verse text.
    ReaderRule ruleOf(const JsonValue& value) const;
    /// Whether a value beside the books or verses can have no verse in it.
    bool isDescription(const JsonValue& value, bool isInList = false) const;
    [[noreturn]] void fail(const JsonValue& value, const std::string& what) const;
    const JsonValue* container(const JsonValue& object, Field field) const;

    void readRoot(const JsonValue& root);
    void readList(const JsonValue& list);
    void readItem(const JsonValue& item, unsigned int position);
    void readMap(const JsonValue& map);
    void readReferenced(const JsonValue& member, const JsonReference& reference);
    void readOther(const JsonValue& member, bool besideReferences);
    void readMember(const JsonValue& member);
    void readBook(const JsonValue& book, BookClues clues);
    void readChapters(const JsonValue& chapters);
    void readChapter(const JsonValue& chapter, const std::optional<unsigned int>& number);
    void readPart(const JsonValue& chapter);
    void readVerses(const JsonValue& verses, const JsonPosition& around);
    void readVerse(const JsonValue& verse, const std::optional<VerseNumber>& number,
                   const JsonPosition& around);
    std::optional<VerseNumber> numberByReference(const JsonValue& verse, JsonPosition& position) const;
    bool statesChapters(const JsonValue& part) const;
    void takeBook(BookClues clues, JsonPosition& position) const;
    void moveTo(const JsonPosition& position, const JsonValue& value);
    void readRecord(const JsonValue& record);
    void readRow(const JsonValue& row);

    template <typename Read>
    void readInside(const JsonValue& object, const JsonValue* inner, bool isRoot, Read&& read);

    void beginBook(const std::string& osis, const BookClues& clues, const JsonValue& value, bool isWhole);
    void beginReferencedVerse(const JsonReference& reference, BookClues clues, const JsonValue& value);
    void giveParts(const JsonValue& verse);
    void giveText(const JsonValue& text);
    void leaveOut(const JsonValue& value, ReaderRule rule);
    void takeInfo(const JsonValue& value);
    void readBeside(const JsonValue& value);
    bool isListOfBooks(const JsonValue& value) const;

    JsonSource& m_source;
    CVerseCollector& m_verses;
    const CJsonDocument& m_document;
    std::string m_book;         ///< OSIS id of the current book
    BookClues m_clues;          ///< what identified it
    unsigned int m_chapter = 0; ///< the current one; 0: none yet
};

} // namespace Kedrin::ModTool
