// Texts of a JSON document, and verses that state their reference.

#include "ascii.h"
#include "errors.h"
#include "inline_markup.h"
#include "json_shapes.h"
#include "messages.h"

#include <algorithm>
#include <vector>

namespace Kedrin::ModTool {

namespace {

constexpr const char* versesShape = translatable("%s, verses with book, chapter and verse");

} // namespace

ReaderRule CJsonShapes::ruleOf(Field field)
{
    switch (field) {
    case Field::heading:
        return ReaderRule::title;
    case Field::note:
        return ReaderRule::note;
    case Field::none:
    case Field::text:
        return ReaderRule::outside;
    default:
        return ReaderRule::metadata;
    }
}

/// @param isWhole  the whole book is here, so it may not be given again
void CJsonShapes::beginBook(const std::string& osis, const BookClues& clues, const JsonValue& value,
                            bool isWhole)
{
    if (isWhole) {
        const std::string here = m_document.fileName() + ':' + std::to_string(value.line);
        const auto [before, isNew] = m_source.books.try_emplace(osis, here);
        if (!isNew)
            fail(value, message("%s was already given at %s", osis, before->second));
    }
    if (osis == m_book && !isWhole)
        return;
    m_book = osis;
    m_clues = clues;
    m_chapter = 0;
    if (clues.unknown.empty())
        m_verses.beginBook(osis);
    else
        m_verses.beginUnknownBook(osis, clues.unknown);
    m_verses.beginChapter();
}

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
        const auto verseNumber = verse ? parseVerseNumber(verse->text) : std::nullopt;
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
        if (const auto verse = parseVerseNumber(values[last - 1]->text))
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

/// The members of the open verse's object.
void CJsonShapes::giveParts(const JsonValue& verse)
{
    const JsonValue* text = m_document.find(verse, Field::text);
    for (const JsonValue& child : m_document.childrenOf(verse))
        if (&child == text)
            giveText(child);
        else
            leaveOut(child, ruleOf(child.field));
}

void CJsonShapes::giveText(const JsonValue& text)
{
    if (text.isString())
        return addMarkedText(m_verses, text.text, text.line);
    if (text.kind == Kind::array)
        for (const JsonValue& part : m_document.childrenOf(text)) {
            giveText(part);
            m_verses.addBreak();
        }
    else if (text.kind != Kind::null)
        fail(text, tr("a verse's text must be a string or a list of strings"));
}

/// All strings of the value.
void CJsonShapes::leaveOut(const JsonValue& value, ReaderRule rule)
{
    if (value.isString()) {
        if (rule != ReaderRule::metadata && !isBlank(withoutTags(value.text)))
            m_verses.found(rule, value.line);
        leaveOutMarkedText(m_verses, rule, value.text);
    }
    for (const JsonValue& child : m_document.childrenOf(value))
        leaveOut(child, rule);
}

/// A member of the outermost object, which describes the source.
void CJsonShapes::takeInfo(const JsonValue& value)
{
    leaveOut(value, value.field == Field::text ? ReaderRule::outside : ReaderRule::metadata);
    SourceInfo& info = m_verses.info();
    if (value.isString()) {
        const std::string text(trimmed(withoutTags(value.text)));
        const bool isTitle =
            value.field == Field::translation || value.field == Field::name || value.field == Field::title;
        if (isTitle && info.fullTitle.empty())
            info.fullTitle = text;
        else if (value.field == Field::shortName && info.shortTitle.empty())
            info.shortTitle = info.abbreviatedTitle = text;
        else if (value.field == Field::rights && !text.empty())
            info.copyright.push_back(text);
    }
}

} // namespace Kedrin::ModTool
