#include "marked_text.h"

#include <swmgr.h>
#include <swmodule.h>
#include <versekey.h>

#include <map>
#include <memory>
#include <sstream>
#include <tuple>

namespace build_test {

namespace {

using Kind = Piece::Kind;
using Style = Piece::Style;

/// The value of an attribute of a tag; "" where it has none.
std::string attributeOf(std::string_view tag, const std::string& name)
{
    const std::size_t begin = tag.find(' ' + name + "=\"");
    if (begin == std::string_view::npos)
        return "";
    const std::size_t value = begin + name.size() + 3;
    return std::string(tag.substr(value, tag.find('"', value) - value));
}

std::string withCharacters(std::string text)
{
    for (const auto& [entity, character] : {std::pair("&lt;", "<"), {"&gt;", ">"}, {"&amp;", "&"}})
        for (std::size_t i = text.find(entity); i != std::string::npos; i = text.find(entity, i + 1))
            text.replace(i, std::string_view(entity).size(), character);
    return text;
}

std::string withoutTags(std::string_view markup)
{
    std::string text;
    bool inTag = false;
    for (const char c : markup) {
        if (c == '<' || c == '>')
            inTag = c == '<';
        else if (!inTag)
            text += c;
    }
    return withCharacters(text);
}

class COsisEntry
{
public:
    explicit COsisEntry(std::string_view entry) : m_rest(entry) {}

    std::vector<Piece> pieces()
    {
        while (!m_rest.empty() && !m_bookEnded) {
            const std::size_t tag = std::min(m_rest.find('<'), m_rest.size());
            if (tag != 0)
                addText(take(tag));
            if (m_rest.empty())
                break;
            const std::string_view whole = take(m_rest.find('>') + 1);
            if (whole.starts_with("</"))
                end(whole.substr(2, whole.size() - 3));
            else
                start(whole);
        }
        return std::move(m_pieces);
    }

private:
    std::string_view take(std::size_t byteCount)
    {
        const std::string_view taken = m_rest.substr(0, byteCount);
        m_rest.remove_prefix(taken.size());
        return taken;
    }

    void add(Kind kind, const std::string& text = {}, Style style = Style::none)
    {
        m_pieces.push_back({kind, text, style});
    }

    void addText(std::string_view escaped)
    {
        add(Kind::text, withCharacters(std::string(escaped)));
        const bool inTitle = !m_open.empty() && m_open.front() == Style::psalmTitle;
        m_hasText = m_hasText || (!inTitle && escaped.find_first_not_of(" \n") != std::string_view::npos);
    }

    /// What stands between the tag that was taken last and the end tag of this name, without tags.
    std::string contentTo(const std::string& name)
    {
        const std::string endTag = "</" + name + '>';
        std::string content = withoutTags(take(m_rest.find(endTag)));
        take(endTag.size());
        return content;
    }

    void start(std::string_view tag)
    {
        const std::string name(tag.substr(1, tag.find_first_of(" />") - 1));
        const std::string type = attributeOf(tag, "type");
        const bool isEnd = !attributeOf(tag, "eID").empty();
        if (name == "note")
            add(Kind::note, contentTo(name));
        else if (name == "speaker" || (name == "title" && attributeOf(tag, "canonical").empty()))
            add(Kind::heading, contentTo(name));
        else if (name == "div" && attributeOf(tag, "subType") == "x-preverse" && isEnd)
            beginVerse();
        else if (name == "div" && type == "book" && isEnd)
            m_bookEnded = true;
        else if (name == "l" && isEnd && type == "selah")
            add(Kind::close, {}, Style::selah);
        else if (name == "l" && !isEnd)
            startLine(type);
        else if ((name == "div" || name == "lb") && type == "x-p" && !isEnd)
            add(Kind::paragraph);
        else if (name == "item")
            add(Kind::item);
        else if (!tag.ends_with("/>"))
            open(name, tag);
    }

    /// An entry may hold several verses; only what stands before the first one's text stands before its number.
    void beginVerse()
    {
        if (!m_hasText)
            add(Kind::verseBegin);
        m_hasText = true;
    }

    void startLine(const std::string& type)
    {
        add(Kind::line);
        if (type == "selah")
            add(Kind::open, {}, Style::selah);
    }

    void open(const std::string& name, std::string_view tag)
    {
        static const std::map<std::string, Style> styles{
            {"w", Style::word},  {"transChange", Style::added}, {"divineName", Style::divineName},
            {"q", Style::jesus}, {"foreign", Style::foreign},   {"title", Style::psalmTitle}};
        const auto known = styles.find(name);
        m_open.push_back(known == styles.end() ? Style::none : known->second);
        if (m_open.back() == Style::none)
            return;
        const std::string lemma = attributeOf(tag, "lemma"); // "strong:H0430"
        add(Kind::open, lemma.substr(std::min<std::size_t>(lemma.find(':') + 1, lemma.size())),
            m_open.back());
    }

    void end(std::string_view name)
    {
        if (m_open.empty() || name == "item" || name == "list")
            return;
        if (m_open.back() != Style::none)
            add(Kind::close, {}, m_open.back());
        m_open.pop_back();
    }

    std::string_view m_rest;
    std::vector<Piece> m_pieces;
    std::vector<Style> m_open;
    bool m_hasText = false; ///< of the verse, other than titles
    bool m_bookEnded = false;
};

sword::SWModule* moduleNamed(sword::SWMgr& manager, const std::string& name)
{
    for (const auto& [key, module] : manager.getModules()) {
        const char* abbreviation = module->getConfigEntry("Abbreviation");
        if (name == key.c_str() || (abbreviation && name == abbreviation))
            return module;
    }
    return nullptr;
}

} // namespace

std::vector<Piece> piecesOfOsis(std::string_view entry) { return COsisEntry(entry).pieces(); }

MarkedBible installedBible(const std::string& name)
{
    sword::SWMgr manager;
    sword::SWModule* module = moduleNamed(manager, name);
    if (!module)
        return {};
    const std::unique_ptr<sword::VerseKey> key(static_cast<sword::VerseKey*>(module->createKey()));
    key->setPersist(true);
    key->setIntros(false);
    module->setKey(key.get());
    MarkedBible bible;
    for (key->setPosition(sword::TOP); !key->popError(); key->increment(1)) {
        const char* raw = module->getRawEntry();
        if (!raw || !*raw)
            continue;
        if (bible.empty() || bible.back().osis != key->getOSISBookName())
            bible.push_back({key->getOSISBookName(), {}});
        bible.back().verses.push_back({static_cast<unsigned int>(key->getChapter()),
                                       static_cast<unsigned int>(key->getVerse()), piecesOfOsis(raw)});
    }
    module->setKey("");
    return bible;
}

MarkedBible bibleOfLines(const std::string& lines, const std::string& notes)
{
    using Place = std::tuple<std::string, unsigned int, unsigned int>;
    const auto forEach = [](const std::string& text, auto&& use) {
        std::istringstream in(text);
        for (std::string line; std::getline(in, line);) {
            std::istringstream fields(line);
            std::string book, rest;
            unsigned int chapter = 0, verse = 0;
            fields >> book >> chapter >> verse;
            fields.get();
            std::getline(fields, rest);
            if (!rest.empty())
                use(Place(book, chapter, verse), rest);
        }
    };
    std::multimap<Place, std::string> notesAt;
    forEach(notes, [&](const Place& place, const std::string& text) { notesAt.emplace(place, text); });
    MarkedBible bible;
    forEach(lines, [&](const Place& place, const std::string& text) {
        const auto& [book, chapter, verse] = place;
        if (bible.empty() || bible.back().osis != book)
            bible.push_back({book, {}});
        MarkedVerse marked{chapter, verse, {{Kind::text, text}}};
        const auto [first, last] = notesAt.equal_range(place);
        for (auto note = first; note != last; ++note)
            marked.pieces.push_back({Kind::note, note->second});
        bible.back().verses.push_back(marked);
    });
    return bible;
}

MarkedCounts countMarks(const MarkedBible& bible)
{
    MarkedCounts counts;
    for (const MarkedBook& book : bible)
        for (const MarkedVerse& verse : book.verses)
            for (const Piece& piece : verse.pieces) {
                counts.notes += piece.kind == Kind::note;
                counts.headings += piece.kind == Kind::heading;
                counts.psalmTitles += piece.kind == Kind::open && piece.style == Style::psalmTitle;
            }
    return counts;
}

} // namespace build_test
