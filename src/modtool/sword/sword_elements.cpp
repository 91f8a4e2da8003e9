#include "sword_elements.h"

#include <algorithm>
#include <unordered_map>

namespace Kedrin::ModTool {

namespace {

using Form = SwordPiece::Form;

template <std::size_t N>
bool isOneOf(std::string_view name, const std::string_view (&names)[N])
{
    return std::find(std::begin(names), std::end(names), name) != std::end(names);
}

// These separate words.
constexpr std::string_view breaks[] = {
    "l",      "p",      "lg",     "lb",      "title", "milestone", "br",      "CL",   "CN",
    "CM",     "div",    "list",   "item",    "table", "row",       "cell",    "head", "closer",
    "speech", "salute", "signed", "chapter", "label", "caesura",   "speaker", "TS"};
constexpr std::string_view headings[] = {"title", "speaker", "head", "TS", "h1",
                                         "h2",    "h3",      "h4",   "h5", "h6"};
constexpr std::string_view notes[] = {"note", "scripRef", "RF", "RX"};
constexpr std::string_view figures[] = {"figure", "caption", "index"};

std::optional<ReaderRule> ruleOfDivision(std::string_view tag)
{
    const std::string_view kind = swordAttribute(tag, "class");
    if (kind == "sechead" || kind == "title")
        return ReaderRule::title;
    if (kind == "2" && swordAttribute(tag, "type") == "variant")
        return ReaderRule::otherReading;
    return std::nullopt;
}

/// The start and end tags of an element, in their order.
std::vector<Form> tagsOf(std::string_view raw, std::string_view element)
{
    std::vector<Form> forms;
    if (raw.find(element) == std::string_view::npos)
        return forms;
    for (const SwordPiece& piece : swordPieces(raw))
        if (piece.name == element && (piece.form == Form::start || piece.form == Form::end))
            forms.push_back(piece.form);
    return forms;
}

} // namespace

bool isBreak(const SwordPiece& tag) { return isOneOf(tag.name, breaks); }

bool isPsalmTitle(const SwordPiece& piece)
{
    const std::string_view canonical = swordAttribute(piece.bytes, "canonical");
    return piece.name == "title" &&
           (canonical == "true" || (canonical.empty() && swordAttribute(piece.bytes, "type") == "psalm"));
}

std::optional<ReaderRule> ruleOf(const SwordPiece& piece)
{
    if (isOneOf(piece.name, notes))
        return ReaderRule::note;
    if (isOneOf(piece.name, headings))
        return ReaderRule::title;
    if (isOneOf(piece.name, figures))
        return ReaderRule::figure;
    if (piece.name == "div")
        return ruleOfDivision(piece.bytes);
    const std::string_view type =
        piece.name == "seg" || piece.name == "rdg" ? swordAttribute(piece.bytes, "type") : std::string_view();
    const bool isSecond =
        piece.name == "seg" && type == "x-variant" && swordAttribute(piece.bytes, "subType") == "x-2";
    if (isSecond || (piece.name == "rdg" && !type.empty() && type != "primary"))
        return ReaderRule::otherReading;
    return std::nullopt;
}

bool isPreverse(const SwordPiece& piece, std::string_view attribute)
{
    return piece.form == Form::empty && piece.name == "div" &&
           swordAttribute(piece.bytes, "subType") == "x-preverse" &&
           !swordAttribute(piece.bytes, attribute).empty();
}

std::vector<std::size_t> endsOf(const std::vector<SwordPiece>& pieces)
{
    std::vector<std::size_t> ends(pieces.size(), std::string_view::npos);
    std::unordered_map<std::string_view, std::vector<std::size_t>> open;
    for (std::size_t i = 0; i < pieces.size(); ++i) {
        if (pieces[i].form != Form::start && pieces[i].form != Form::end)
            continue;
        std::vector<std::size_t>& starts = open[pieces[i].name];
        if (pieces[i].form == Form::start) {
            starts.push_back(i);
        } else if (!starts.empty()) {
            ends[starts.back()] = i;
            starts.pop_back();
        }
    }
    return ends;
}

bool endsInside(std::string_view raw, std::string_view element)
{
    const auto tags = tagsOf(raw, element);
    return !tags.empty() && tags.back() == Form::start;
}

bool beginsInside(std::string_view raw, std::string_view element)
{
    const auto tags = tagsOf(raw, element);
    return !tags.empty() && tags.front() == Form::end;
}

} // namespace Kedrin::ModTool
