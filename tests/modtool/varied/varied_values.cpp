#include "varied_values.h"

#include <utility>

namespace varied_test {

Value Value::text(const std::string& content) { return {Kind::string, content, {}, false}; }
Value Value::number(unsigned int value) { return {Kind::number, std::to_string(value), {}, false}; }
Value Value::list() { return {Kind::list, "", {}, false}; }
Value Value::map(bool mayBeShuffled) { return {Kind::map, "", {}, mayBeShuffled}; }
Value& Value::add(Value item) { return add("", std::move(item)); }
Value& Value::add(const std::string& key, Value item)
{
    items.push_back({key, std::move(item)});
    return items.back().value;
}

namespace {

/// A key in any of its spellings.
std::string spelt(const std::string& key, CRandom& random)
{
    if (!random.oneIn(5))
        return key;
    std::string varied;
    for (const char c : key)
        varied += random.oneIn(2) && c != '_' ? static_cast<char>(c & ~0x20) : c == '_' ? '-' : c;
    return varied;
}

/// A number, or a string with it.
Value anyNumber(unsigned int value, CRandom& random)
{
    return random.oneIn(5) ? Value::text(std::to_string(value)) : Value::number(value);
}

/// With the characters that begin tags and entities as such.
std::string withEntities(const std::string& words, CRandom& random)
{
    std::string escaped;
    for (const char c : words) {
        if ((c == '<' || c == '&' || c == '>') && random.oneIn(2))
            escaped += c == '<' ? "&lt;" : c == '>' ? "&gt;" : "&amp;";
        else
            escaped += c;
    }
    return escaped;
}

Value textOf(const Verse& verse, CRandom& random) { return Value::text(withEntities(verse.text, random)); }

class CStructure
{
public:
    CStructure(const Text& text, CRandom& random) : m_text(text), m_random(random) {}

    /// Books with chapters of verses, with descriptions.
    Value described()
    {
        Value books = Value::list();
        Value *chapters = nullptr, *verses = nullptr;
        forEachPart(
            m_text,
            [&](const Book& book) {
                Value one = Value::map(true);
                if (m_random.oneIn(2))
                    one.add(spelt("name", m_random), Value::text(anyNameOf(book, m_random)));
                else
                    one.add(spelt("nr", m_random), anyNumber(book.number, m_random));
                one.add(spelt("chapters", m_random), Value::list());
                chapters = &books.add(std::move(one)).items.back().value;
            },
            [&](const Verse& verse) {
                Value one = Value::map(true);
                one.add(spelt("chapter", m_random), anyNumber(verse.chapter, m_random));
                one.add(spelt("verses", m_random), Value::list());
                verses = &chapters->add(std::move(one)).items.back().value;
            },
            [&](const Verse& verse) {
                Value one = Value::map(true);
                one.add(spelt("verse", m_random), anyNumber(verse.verse, m_random));
                one.add(spelt("text", m_random), textOf(verse, m_random));
                verses->add(std::move(one));
            },
            [] {}, [] {});
        return books;
    }

    /// Books by name, with chapters and verses by number.
    Value byName()
    {
        Value books = Value::map(false);
        Value *chapters = nullptr, *verses = nullptr;
        forEachPart(
            m_text,
            [&](const Book& book) { chapters = &books.add(anyNameOf(book, m_random), Value::map(true)); },
            [&](const Verse& verse) {
                verses = &chapters->add(std::to_string(verse.chapter), Value::map(true));
            },
            [&](const Verse& verse) { verses->add(std::to_string(verse.verse), textOf(verse, m_random)); },
            [] {}, [] {});
        return books;
    }

    /// Books with lists of lists, where gaps are null or empty.
    Value positional()
    {
        Value books = Value::list();
        Value *chapters = nullptr, *verses = nullptr;
        const auto fill = [&](Value& list, unsigned int count, bool withLists) {
            while (list.items.size() + 1 < count)
                list.add(withLists ? Value::list() : Value::text(""));
        };
        forEachPart(
            m_text,
            [&](const Book& book) {
                Value one = Value::map(true);
                one.add(spelt("abbrev", m_random), Value::text(book.osis));
                one.add(spelt("chapters", m_random), Value::list());
                chapters = &books.add(std::move(one)).items.back().value;
            },
            [&](const Verse& verse) {
                fill(*chapters, verse.chapter, true);
                verses = &chapters->add(Value::list());
            },
            [&](const Verse& verse) {
                fill(*verses, verse.verse, false);
                verses->add(textOf(verse, m_random));
            },
            [] {}, [] {});
        return books;
    }

    /// A list of verses, each with its place.
    Value flat()
    {
        Value verses = Value::list();
        for (const Verse& verse : m_text) {
            Value& one = verses.add(Value::map(true));
            one.add(spelt("book", m_random), m_random.oneIn(2)
                                                 ? anyNumber(verse.book->number, m_random)
                                                 : Value::text(anyNameOf(*verse.book, m_random)));
            one.add(spelt("chapter", m_random), anyNumber(verse.chapter, m_random));
            one.add(spelt("verse", m_random), anyNumber(verse.verse, m_random));
            one.add(spelt("text", m_random), textOf(verse, m_random));
        }
        return verses;
    }

    Value rows()
    {
        Value verses = Value::list();
        for (const Verse& verse : m_text) {
            Value& one = verses.add(Value::list());
            one.add(Value::text(anyNameOf(*verse.book, m_random)));
            one.add(anyNumber(verse.chapter, m_random));
            one.add(anyNumber(verse.verse, m_random));
            one.add(textOf(verse, m_random));
        }
        return verses;
    }

    Value byReference()
    {
        Value verses = Value::map(false);
        for (const Verse& verse : m_text) {
            const std::string place = std::to_string(verse.chapter) + ':' + std::to_string(verse.verse);
            const std::string book = m_random.oneIn(2) ? std::to_string(verse.book->number) + ':'
                                                       : anyNameOf(*verse.book, m_random) + ' ';
            verses.add(book + place, textOf(verse, m_random));
        }
        return verses;
    }

private:
    const Text& m_text;
    CRandom& m_random;
};

} // namespace

Value structured(const Text& text, bool hasRoot, CRandom& random)
{
    CStructure structure(text, random);
    if (hasRoot || random.oneIn(4)) {
        Value root = Value::map(true);
        root.add("translation", Value::text("Тест"));
        root.add("books", random.oneIn(2) ? structure.described() : structure.positional());
        return root;
    }
    switch (random.number(6)) {
    case 0:
        return structure.described();
    case 1:
        return structure.byName();
    case 2:
        return structure.positional();
    case 3:
        return structure.flat();
    case 4:
        return structure.rows();
    default:
        return structure.byReference();
    }
}

} // namespace varied_test
