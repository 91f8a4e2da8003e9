#include "markup_defects.h"

#include "cp1251.h"

#include <algorithm>
#include <span>

namespace Kedrin::ModTool {

namespace {

using Kind = MarkupPiece::Kind;
using Names = std::span<const std::string_view>;

constexpr std::size_t maxShownBytes = 9; // of what begins no tag and no reference

constexpr std::string_view inlineTags[] = {"b",      "big", "br",  "cite", "code", "del",  "dfn",   "em",
                                           "font",   "i",   "kbd", "nobr", "s",    "samp", "small", "span",
                                           "strong", "sub", "sup", "tt",   "u",    "var"};
constexpr std::string_view imageTags[] = {"img",   "image", "object", "embed", "iframe",
                                          "frame", "audio", "video",  "svg",   "applet"};
constexpr std::string_view styleTags[] = {"style", "link", "meta", "base"};
constexpr std::string_view scriptTags[] = {"script", "form", "input", "button"};
constexpr std::string_view voidTags[] = {"br",    "hr",   "img",  "image", "embed",
                                         "frame", "link", "meta", "base",  "input"};

bool isOneOf(std::string_view name, Names names)
{
    return std::find(names.begin(), names.end(), name) != names.end();
}

bool isChapterLink(const MarkupPiece& tag)
{
    return std::any_of(tag.attributes.begin(), tag.attributes.end(), [](const auto& attribute) {
        const auto& [name, value] = attribute;
        return (name == "name" || name == "id") && value == "gotoChapter";
    });
}

} // namespace

void CMarkupDefects::read(std::string_view stored)
{
    m_plain.clear();
    m_open.clear();
    m_tooDeep = 0;
    m_found.clear();
    CStoredMarkup markup(stored);
    bool isShown = true;
    while (isShown && markup.next()) {
        const std::string_view bytes = markup.piece().bytes;
        readPiece(markup.piece(), stored.substr(static_cast<std::size_t>(bytes.data() - stored.data())));
        isShown = markup.piece().kind != Kind::openDeclaration;
    }
    m_where = stored;
    for (std::size_t i = m_open.size() + m_tooDeep; i > 0; --i)
        add(MarkupDefect::unbalanced);
}

/// @param rest  the verse from this piece on
void CMarkupDefects::readPiece(const MarkupPiece& piece, std::string_view rest)
{
    m_where = piece.bytes;
    switch (piece.kind) {
    case Kind::text:
        m_plain += piece.bytes;
        break;
    case Kind::character:
        readReference(piece);
        break;
    case Kind::ampersand: {
        const std::size_t end = rest.substr(0, maxShownBytes + 1).find(';');
        m_where = rest.substr(0, end == std::string_view::npos ? maxShownBytes : end + 1);
        add(MarkupDefect::entity);
        m_plain += piece.bytes;
        break;
    }
    case Kind::bracket:
        m_where = rest.substr(0, maxShownBytes);
        add(MarkupDefect::bracket);
        m_plain += piece.bytes;
        break;
    case Kind::openDeclaration:
        m_where = rest;
        add(MarkupDefect::comment);
        break;
    case Kind::declaration:
        add(MarkupDefect::comment);
        break;
    case Kind::startTag:
    case Kind::endTag:
        readTag(piece);
        break;
    }
}

void CMarkupDefects::readReference(const MarkupPiece& piece)
{
    const auto byte = ut::to_cp1251(piece.character);
    if (!byte)
        add(MarkupDefect::foreignEntity);
    m_plain += byte.value_or('?');
}

void CMarkupDefects::readTag(const MarkupPiece& piece)
{
    judgeAttributes(piece);
    if (separatesWords(piece.name))
        m_plain += ' ';
    if (piece.kind == Kind::endTag) {
        close(piece.name);
        return;
    }
    judgeStart(piece);
    if (!isOneOf(piece.name, voidTags) && !piece.bytes.ends_with("/>"))
        open(piece.name);
}

void CMarkupDefects::judgeAttributes(const MarkupPiece& tag)
{
    for (const auto& [name, value] : tag.attributes) {
        if (name == "style")
            add(MarkupDefect::style);
        if (name.starts_with("on"))
            add(MarkupDefect::script);
    }
}

void CMarkupDefects::judgeStart(const MarkupPiece& tag)
{
    if (isChapterLink(tag))
        add(MarkupDefect::gotoChapter);
    else if (tag.name == "a")
        add(MarkupDefect::link);
    else if (isOneOf(tag.name, imageTags))
        add(MarkupDefect::image);
    else if (isOneOf(tag.name, styleTags))
        add(MarkupDefect::style);
    else if (isOneOf(tag.name, scriptTags))
        add(MarkupDefect::script);
    else if (isBlockTag(tag.name))
        add(MarkupDefect::block);
    else if (!isOneOf(tag.name, inlineTags))
        add(MarkupDefect::unknownTag);
}

void CMarkupDefects::open(const std::string& name)
{
    if (m_open.size() < maxDepth) {
        m_open.push_back(name);
        return;
    }
    if (m_tooDeep++ == 0)
        add(MarkupDefect::deep);
}

void CMarkupDefects::close(const std::string& name)
{
    if (m_tooDeep > 0) {
        --m_tooDeep;
        return;
    }
    const auto found = std::find(m_open.rbegin(), m_open.rend(), name);
    if (found != m_open.rbegin() || found == m_open.rend())
        add(MarkupDefect::unbalanced);
    if (found != m_open.rend())
        m_open.erase(found.base() - 1, m_open.end());
}

} // namespace Kedrin::ModTool
