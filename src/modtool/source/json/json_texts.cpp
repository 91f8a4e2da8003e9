// Texts of a JSON document, and what is beside its books and verses.

#include "ascii.h"
#include "errors.h"
#include "inline_markup.h"
#include "json_shapes.h"
#include "messages.h"

#include <algorithm>
#include <initializer_list>

namespace Kedrin::ModTool {

ReaderRule CJsonShapes::ruleOf(const JsonValue& value) const
{
    switch (value.field) {
    case Field::heading:
        return ReaderRule::title;
    case Field::note:
        return ReaderRule::note;
    case Field::none:
    case Field::text:
        return ReaderRule::outside;
    default:
        return isDescription(value) ? ReaderRule::metadata : ReaderRule::outside;
    }
}

bool CJsonShapes::isDescription(const JsonValue& value, bool isInList) const
{
    const auto isOneOf = [&](std::initializer_list<Field> fields) {
        return std::find(fields.begin(), fields.end(), value.field) != fields.end();
    };
    if (!value.isContainer())
        return value.field != Field::text;
    if (isOneOf({Field::books, Field::chapters, Field::verses, Field::rows, Field::row, Field::text}))
        return false;
    const bool isList = value.kind == Kind::array;
    if (isList && !isInList && isOneOf({Field::none, Field::book, Field::chapter, Field::verse}))
        return false;
    for (const JsonValue& child : m_document.childrenOf(value))
        if ((!isList && parseJsonNumber(child.key)) || !isDescription(child, isList))
            return false;
    return true;
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

/// The members of the open verse's object.
void CJsonShapes::giveParts(const JsonValue& verse)
{
    const JsonValue* text = m_document.find(verse, Field::text);
    for (const JsonValue& child : m_document.childrenOf(verse))
        if (&child == text)
            giveText(child);
        else
            leaveOut(child, ruleOf(child));
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

/// A member of the root beside the list or object that was found to have the books or verses.
void CJsonShapes::readBeside(const JsonValue& value)
{
    const ReaderRule rule = ruleOf(value);
    if (isListOfBooks(value))
        readList(value);
    else if (value.isContainer() && (rule == ReaderRule::note || rule == ReaderRule::title))
        leaveOut(value, rule);
    else if (value.isContainer() && !isDescription(value))
        leaveOut(value, ReaderRule::outside);
    else
        takeInfo(value);
}

/// Whether all have chapters, and a book among them is known.
bool CJsonShapes::isListOfBooks(const JsonValue& value) const
{
    if (value.kind != Kind::array)
        return false;
    bool isAnyKnown = false;
    for (const JsonValue& item : m_document.childrenOf(value)) {
        if (!container(item, Field::chapters))
            return false;
        BookClues clues = cluesOfBook(m_document, item);
        isAnyKnown = isAnyKnown || (!bookOf(m_document, clues).empty() && clues.unknown.empty());
    }
    return isAnyKnown;
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
