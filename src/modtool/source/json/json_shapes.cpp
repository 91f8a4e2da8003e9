#include "json_shapes.h"

#include "book_finder.h"
#include "errors.h"
#include "inline_markup.h"
#include "messages.h"
#include "module_format.h"

#include <algorithm>

namespace Kedrin::ModTool {

namespace {

using Kind = JsonValue::Kind;

constexpr const char* booksShape = translatable("%s, books with chapters of verses");
constexpr const char* partShape = translatable("%s, chapters with verses");
constexpr const char* keysShape = translatable("%s, verses by reference");

} // namespace

void CJsonShapes::fail(const JsonValue& value, const std::string& what) const
{
    failAtLine(m_document.fileName(), value.line, what);
}

const JsonValue* CJsonShapes::container(const JsonValue& object, Field field) const
{
    const JsonValue* found = m_document.find(object, field);
    return found && found->isContainer() ? found : nullptr;
}

/// Reads `inner` and leaves out the other members of its object, except lists of books beside it in the root.
template <typename Read>
void CJsonShapes::readInside(const JsonValue& object, const JsonValue* inner, bool isRoot, Read&& read)
{
    for (const JsonValue& child : m_document.childrenOf(object))
        if (&child == inner)
            read();
        else if (isRoot)
            readBeside(child);
        else
            leaveOut(child, ruleOf(child));
}

void CJsonShapes::readRoot(const JsonValue& root)
{
    if (root.kind == Kind::array)
        return readList(root);
    if (const JsonValue* books = container(root, Field::books))
        return readInside(root, books, true, [&] { readRoot(*books); });
    if (container(root, Field::chapters)) {
        BookClues clues = cluesOfBook(m_document, root);
        clues.file = bookOfFile(m_document.fileName());
        return readBook(root, clues);
    }
    if (const JsonValue* verses = container(root, Field::verses)) {
        if (m_document.find(root, Field::chapter))
            return readPart(root);
        return readInside(root, verses, true, [&] { readRoot(*verses); });
    }
    if (const JsonValue* rows = container(root, Field::rows))
        return readInside(root, rows, true, [&] { readRoot(*rows); });
    readMap(root);
}

void CJsonShapes::readList(const JsonValue& list)
{
    const bool isProtestant = isProtestantList(m_document, list);
    unsigned int position = 0;
    for (const JsonValue& item : m_document.childrenOf(list))
        readItem(item, isProtestant ? ++position : 0);
}

void CJsonShapes::readItem(const JsonValue& item, unsigned int position)
{
    if (item.kind == Kind::array)
        return readRow(item);
    if (!item.isContainer())
        return leaveOut(item, ReaderRule::outside);
    if (const JsonValue* row = container(item, Field::row))
        return readInside(item, row, false, [&] { readRow(*row); });
    if (container(item, Field::chapters)) {
        BookClues clues = cluesOfBook(m_document, item);
        clues.position = position;
        return readBook(item, clues);
    }
    if (container(item, Field::verses))
        return readPart(item);
    if (m_document.find(item, Field::text))
        return readRecord(item);
    fail(item, tr("unknown JSON structure: neither books with chapters nor numbered verses"));
}

void CJsonShapes::readMap(const JsonValue& map)
{
    bool hasReferences = false;
    for (const JsonValue& member : m_document.childrenOf(map))
        hasReferences = hasReferences || parseJsonReference(member.key);
    for (const JsonValue& member : m_document.childrenOf(map))
        if (const auto reference = parseJsonReference(member.key))
            readReferenced(member, *reference);
        else if (member.isContainer())
            readMember(member);
        else
            readOther(member, hasReferences);
}

/// A member whose key is a reference.
void CJsonShapes::readReferenced(const JsonValue& member, const JsonReference& reference)
{
    if (member.kind == Kind::null)
        return;
    if (member.kind == Kind::object && !m_document.find(member, Field::text))
        fail(member, tr("unknown JSON structure: neither books with chapters nor numbered verses"));
    m_source.shapes.insert(keysShape);
    BookClues clues;
    (parseJsonNumber(reference.book) ? clues.number : clues.names.emplace_back()) = reference.book;
    beginReferencedVerse(reference, clues, member);
    if (member.kind == Kind::object)
        giveParts(member);
    else
        giveText(member);
    m_verses.endVerse();
}

/// A string, number or the like whose key is no reference.
void CJsonShapes::readOther(const JsonValue& member, bool besideReferences)
{
    if (member.kind != Kind::null && isLikeReference(member.key))
        fail(member, message("%s is not a verse reference, such as Gen.1.1", inQuotes(member.key)));
    if (besideReferences && member.field == Field::none)
        leaveOut(member, ReaderRule::outside);
    else
        takeInfo(member);
}

/// A book, or an object that describes the source.
void CJsonShapes::readMember(const JsonValue& member)
{
    BookClues clues;
    clues.line = member.line;
    const bool isNumber = parseJsonNumber(member.key).has_value();
    const bool isKnown = isNumber || !bookFinder().find(member.key).empty();
    if (!isKnown && isLikeReference(member.key))
        fail(member, message("%s is not a verse reference, such as Gen.1.1", inQuotes(member.key)));
    (isNumber ? clues.number : clues.names.emplace_back()) = member.key;
    bool isFlat =
        member.kind == Kind::object && !isKnown && (member.field != Field::none || isDescription(member));
    for (const JsonValue& child : m_document.childrenOf(member))
        isFlat = isFlat && !child.isContainer();
    if (isFlat)
        return takeInfo(member);
    readBook(member, clues);
}

void CJsonShapes::readBook(const JsonValue& book, BookClues clues)
{
    const std::string osis = bookOf(m_document, clues);
    if (osis.empty())
        fail(book, tr("a book without a name or number"));
    m_source.shapes.insert(booksShape);
    m_source.hasBooksByPosition = m_source.hasBooksByPosition || clues.isByPosition;
    beginBook(osis, clues, book, true);
    const auto first = [](const auto& texts) { return texts.empty() ? "" : std::string(texts.front()); };
    m_verses.titles() = {first(clues.names), first(clues.codes), first(clues.codes)};
    const JsonValue* chapters = container(book, Field::chapters);
    if (!chapters)
        return readChapters(book);
    readInside(book, chapters, false, [&] { readChapters(*chapters); });
}

void CJsonShapes::readChapters(const JsonValue& chapters)
{
    const auto children = m_document.childrenOf(chapters);
    const bool isList = chapters.kind == Kind::array;
    unsigned int index = isList && !children.empty() && (*children.begin()).kind == Kind::null ? 0 : 1;
    const JsonPosition book{m_book, m_clues, std::nullopt};
    for (const JsonValue& chapter : children) {
        if (chapter.isContainer()) {
            JsonPosition position = book;
            takeBook(cluesOfPart(m_document, chapter), position);
            moveTo(position, chapter);
            const JsonValue* own = m_document.find(chapter, Field::chapter);
            own = own ? own : m_document.find(chapter, Field::number);
            const bool isOwn = container(chapter, Field::verses) && own && own->isScalar();
            if (!isList && !isOwn && !parseJsonNumber(chapter.key))
                fail(chapter, message("%s is not a chapter number", inQuotes(chapter.key)));
            readChapter(chapter, isOwn    ? parseJsonNumber(own->text)
                                 : isList ? std::optional(index)
                                          : parseJsonNumber(chapter.key));
        } else {
            leaveOut(chapter, ruleOf(chapter));
        }
        ++index;
    }
    moveTo(book, chapters);
}

/// @param number  nullopt if the stated one is not a number
void CJsonShapes::readChapter(const JsonValue& chapter, const std::optional<unsigned int>& number)
{
    m_chapter = number.value_or(std::min(m_chapter + 1, maxSourceNumber));
    m_verses.beginChapter(m_chapter);
    if (!number)
        m_verses.found(ReaderRule::chapterWithoutNumber, chapter.line);
    const JsonPosition here{m_book, m_clues, m_chapter};
    const JsonValue* verses = container(chapter, Field::verses);
    if (!verses)
        return readVerses(chapter, here);
    readInside(chapter, verses, false, [&] { readVerses(*verses, here); });
    m_verses.endVerse();
}

/// A chapter that states its book, or a book whose verses state their chapters.
void CJsonShapes::readPart(const JsonValue& chapter)
{
    const bool isBook = statesChapters(chapter);
    BookClues clues = cluesOfPart(m_document, chapter);
    if (isBook && isSaidBy(clues, {}))
        clues = cluesOfBook(m_document, chapter);
    clues.file = bookOfFile(m_document.fileName());
    std::string osis = bookOf(m_document, clues);
    osis = osis.empty() ? clues.file : osis;
    if (osis.empty())
        fail(chapter, tr("a chapter without a book"));
    m_source.shapes.insert(partShape);
    beginBook(osis, clues, chapter, false);
    if (isBook) {
        const JsonValue* verses = container(chapter, Field::verses);
        return readInside(chapter, verses, false, [&] { readVerses(*verses, {osis, clues, std::nullopt}); });
    }
    const JsonValue* number = m_document.find(chapter, Field::chapter);
    number = number ? number : m_document.find(chapter, Field::number);
    readChapter(chapter, number ? parseJsonNumber(number->text) : std::nullopt);
}

} // namespace Kedrin::ModTool
