// Verses of a JSON document, and the positions that they state.

#include "ascii.h"
#include "errors.h"
#include "json_shapes.h"
#include "messages.h"

#include <algorithm>
#include <vector>

namespace Kedrin::ModTool {

namespace {

constexpr const char* versesShape = translatable("%s, verses with book, chapter and verse");

VerseNumber verseOf(unsigned int number) { return {number, number, false}; }

/// @param value  may be nullptr
std::optional<unsigned int> numberIn(const JsonValue* value)
{
    return value && value->isScalar() ? parseJsonNumber(value->text) : std::nullopt;
}

} // namespace

/// Continues the book and chapter unless they are the current ones.
/// @param value  for the line
void CJsonShapes::moveTo(const JsonPosition& position, const JsonValue& value)
{
    beginBook(position.book, position.clues, value, false);
    if (position.chapter && *position.chapter != m_chapter)
        m_verses.beginChapter(m_chapter = *position.chapter);
}

/// Changes the position to the stated book, if this is another one; then the chapter is not known.
void CJsonShapes::takeBook(BookClues clues, JsonPosition& position) const
{
    if (isSaidBy(clues, position.clues))
        return;
    std::string osis = bookOf(m_document, clues);
    const bool isSame = !clues.unknown.empty() && haveClueInCommon(clues, position.clues);
    if (!osis.empty() && osis != position.book && !isSame)
        position = {std::move(osis), std::move(clues), std::nullopt};
}

/// The number in a verse's reference, which also gives the position; an id counts only if it is of this position.
std::optional<VerseNumber> CJsonShapes::numberByReference(const JsonValue& verse,
                                                          JsonPosition& position) const
{
    for (const Field field : {Field::reference, Field::id}) {
        const JsonValue* value = m_document.find(verse, field);
        const auto reference = value ? parseJsonReference(value->text) : std::nullopt;
        if (!reference)
            continue;
        JsonPosition own = position;
        BookClues clues;
        clues.line = verse.line;
        (parseJsonNumber(reference->book) ? clues.number : clues.names.emplace_back()) = reference->book;
        takeBook(clues, own);
        own.chapter = reference->chapter;
        const bool isHere =
            own.book == position.book && (!position.chapter || own.chapter == position.chapter);
        if (field == Field::id && !isHere)
            continue;
        position = own;
        return reference->verse;
    }
    return std::nullopt;
}

/// Whether a part has no number as a chapter, but verses that have.
bool CJsonShapes::statesChapters(const JsonValue& part) const
{
    const bool hasBook = !isSaidBy(cluesOfPart(m_document, part), {});
    if (m_document.find(part, Field::chapter) || (hasBook && m_document.find(part, Field::number)))
        return false;
    for (const JsonValue& verse : m_document.childrenOf(*container(part, Field::verses)))
        if (const JsonValue* chapter = m_document.find(verse, Field::chapter))
            return parseJsonNumber(chapter->text).has_value();
    return false;
}

/// @param around  the verses' position unless they state their own; without a chapter, they have to
void CJsonShapes::readVerses(const JsonValue& verses, const JsonPosition& around)
{
    const auto children = m_document.childrenOf(verses);
    const bool isList = verses.kind == Kind::array;
    unsigned int index = isList && !children.empty() && (*children.begin()).kind == Kind::null ? 0 : 1;
    for (const JsonValue& verse : children) {
        const auto number = isList ? std::optional(verseOf(index++)) : parseJsonVerse(verse.key);
        const bool isLikeNumber = !verse.key.empty() && isAsciiDigit(verse.key.front());
        if (!number && isLikeNumber && verse.kind != Kind::null && verse.kind != Kind::object)
            readVerse(verse, number, around);
        else if (!number && !verse.isContainer())
            leaveOut(verse, ruleOf(verse));
        else if (!number)
            fail(verse, message("%s is not a verse number", inQuotes(verse.key)));
        else if (verse.kind != Kind::null)
            readVerse(verse, number, around);
    }
    moveTo(around, verses);
}

/// @param number  used if the verse does not state its own; nullopt if it cannot be read
void CJsonShapes::readVerse(const JsonValue& verse, const std::optional<VerseNumber>& number,
                            const JsonPosition& around)
{
    JsonPosition position = around;
    takeBook(cluesOfPart(m_document, verse), position);
    if (const auto chapter = numberIn(m_document.find(verse, Field::chapter)))
        position.chapter = chapter;
    const JsonValue* own = m_document.find(verse, Field::verse);
    own = own ? own : m_document.find(verse, Field::number);
    auto said = own && own->isScalar() ? parseJsonVerse(own->text) : number;
    if (const auto byReference = own ? std::nullopt : numberByReference(verse, position))
        said = byReference;
    if (!position.chapter)
        fail(verse, tr("a verse without a chapter"));
    moveTo(position, verse);
    if (said)
        m_verses.beginVerse(m_chapter, *said, verse.line);
    else
        m_verses.beginVerseWithoutNumber(std::max(m_chapter, 1u), verse.line);
    if (verse.kind == Kind::object)
        giveParts(verse);
    else
        giveText(verse);
    m_verses.endVerse();
}

/// @param value  for the line
void CJsonShapes::beginReferencedVerse(const JsonReference& reference, BookClues clues,
                                       const JsonValue& value)
{
    clues.line = value.line;
    const std::string osis = bookOf(m_document, clues);
    if (osis.empty())
        fail(value, tr("a verse without a book"));
    beginBook(osis, clues, value, false);
    if (reference.chapter != m_chapter)
        m_verses.beginChapter(m_chapter = reference.chapter);
    m_verses.beginVerse(reference.chapter, reference.verse, value.line);
}

/// A verse object that states its book, chapter and number.
void CJsonShapes::readRecord(const JsonValue& record)
{
    m_source.shapes.insert(versesShape);
    BookClues clues = cluesOfPart(m_document, record);
    const JsonValue* chapter = m_document.find(record, Field::chapter);
    const JsonValue* verse = m_document.find(record, Field::verse);
    std::optional<JsonReference> reference;
    for (const Field field : {Field::reference, Field::id}) {
        const JsonValue* whole = chapter || reference ? nullptr : m_document.find(record, field);
        reference = whole ? parseJsonReference(whole->text) : reference;
    }
    if (reference && clues.number.empty() && clues.names.empty() && clues.codes.empty())
        (parseJsonNumber(reference->book) ? clues.number : clues.names.emplace_back()) = reference->book;
    if (!reference) {
        const auto number = chapter ? parseJsonNumber(chapter->text) : std::nullopt;
        if (!number)
            fail(record, tr("a verse without a chapter"));
        const auto verseNumber = verse ? parseJsonVerse(verse->text) : std::nullopt;
        if (!verseNumber)
            fail(record, tr("a verse without a number"));
        reference = JsonReference{"", *number, *verseNumber};
    }
    beginReferencedVerse(*reference, clues, record);
    giveParts(record);
    m_verses.endVerse();
}

/// A verse without keys: id and text, or book, chapter, verse and text, perhaps after an id.
void CJsonShapes::readRow(const JsonValue& row)
{
    m_source.shapes.insert(versesShape);
    std::vector<const JsonValue*> values;
    for (const JsonValue& value : m_document.childrenOf(row))
        values.push_back(&value);
    if (values.size() < 2 || !std::all_of(values.begin(), values.end(),
                                          [](const JsonValue* value) { return !value->isContainer(); }))
        fail(row, tr("unknown JSON structure: neither books with chapters nor numbered verses"));
    const std::size_t last = values.size() - 1;
    std::optional<JsonReference> reference;
    if (values.size() < 4)
        reference = parseJsonReference(values[0]->text);
    else if (const auto chapter = parseJsonNumber(values[last - 2]->text))
        if (const auto verse = parseJsonVerse(values[last - 1]->text))
            reference = JsonReference{values[last - 3]->text, *chapter, *verse};
    if (!reference)
        fail(row, tr("a verse without a chapter"));
    BookClues clues;
    (parseJsonNumber(reference->book) ? clues.number : clues.names.emplace_back()) = reference->book;
    beginReferencedVerse(*reference, clues, row);
    for (std::size_t i = 0; i < last; ++i)
        leaveOut(*values[i], ReaderRule::metadata);
    giveText(*values[last]);
    m_verses.endVerse();
}

} // namespace Kedrin::ModTool
