#include "inline_markup.h"

#include "ascii.h"
#include "html_entities.h"

#include <unicode/unistr.h>

#include <algorithm>
#include <map>
#include <optional>
#include <unordered_set>
#include <vector>

namespace Kedrin::ModTool {

namespace {

struct Piece
{
    enum class Form
    {
        text,
        start,
        end,
        single ///< a self-closing tag, or a comment
    };

    Form form;
    std::string_view bytes;
    std::string name;        ///< of a tag, in lower case
    std::size_t partner = 0; ///< of a start: the index of its end; 0: none
};

using Form = Piece::Form;
using Names = std::initializer_list<std::string_view>;

bool isOneOf(std::string_view name, Names names)
{
    return std::find(names.begin(), names.end(), name) != names.end();
}

constexpr bool isNameByte(char c) { return isAsciiLetter(c) || isAsciiDigit(c); }

/// Of HTML and of Bible databases.
bool isKnownTag(std::string_view name)
{
    static const std::unordered_set<std::string_view> names{
        "a",       "abbr",  "acronym", "article", "b",     "bdo",    "big",   "blockquote", "br",   "center",
        "cite",    "code",  "dd",      "del",     "dfn",   "div",    "dl",    "dt",         "em",   "font",
        "h1",      "h2",    "h3",      "h4",      "h5",    "h6",     "head",  "header",     "hr",   "i",
        "img",     "ins",   "kbd",     "li",      "nav",   "ol",     "p",     "pre",        "q",    "rp",
        "rt",      "ruby",  "s",       "samp",    "sc",    "script", "small", "section",    "span", "strike",
        "strong",  "style", "sub",     "sup",     "table", "tbody",  "td",    "tfoot",      "th",   "thead",
        "tr",      "tt",    "u",       "ul",      "var",   "wbr",    "e",     "f",          "fn",   "h",
        "heading", "j",     "lb",      "m",       "mark",  "n",      "note",  "pb",         "t",    "title",
        "w",       "wj",    "x",       "xref"};
    return names.contains(name);
}

/// The name after "<" or "</", or "".
std::string nameOf(std::string_view tag)
{
    tag.remove_prefix(tag.starts_with("</") ? 2 : 1);
    const auto end = std::find_if_not(tag.begin(), tag.end(), isNameByte);
    return tag.empty() || !isAsciiLetter(tag.front()) ? "" : lower(std::string_view(tag.begin(), end));
}

/// Bytes of the tag or comment at the start of a text that begins with "<"; 0 if it is neither.
std::size_t tagBytes(std::string_view text)
{
    const std::size_t close = text.find_first_of("<>", 1);
    if (text.starts_with("<!--")) {
        const std::string_view comment = text.substr(0, text.find('<', 1));
        const std::size_t end = comment.find("-->", 4);
        return end == std::string_view::npos ? 0 : end + 3;
    }
    if (close == std::string_view::npos || text[close] == '<')
        return 0;
    const std::string name = nameOf(text);
    const std::string_view rest =
        text.substr(0, close).substr(name.size() + (text.starts_with("</") ? 2 : 1));
    const bool isTag = trimmed(rest, " \t\r\n/").empty() || rest.find('=') != std::string_view::npos;
    return isTag && isKnownTag(name) ? close + 1 : 0;
}

/// Bytes before the next tag.
std::size_t textBytes(std::string_view text)
{
    std::size_t i = text.find('<');
    while (i != std::string_view::npos && tagBytes(text.substr(i)) == 0)
        i = text.find('<', i + 1);
    return std::min(i, text.size());
}

/// The pieces of the text, with start tags matched to their end tags.
std::vector<Piece> piecesOf(std::string_view text)
{
    std::vector<Piece> pieces;
    std::map<std::string, std::vector<std::size_t>> open;
    while (!text.empty()) {
        const std::size_t plain = textBytes(text);
        const std::size_t byteCount = plain != 0 ? plain : tagBytes(text);
        Piece piece{Form::text, text.substr(0, byteCount), "", 0};
        text.remove_prefix(byteCount);
        if (plain == 0) {
            piece.name = nameOf(piece.bytes);
            piece.form = piece.name.empty() || piece.bytes.ends_with("/>") ? Form::single
                         : piece.bytes.starts_with("</")                   ? Form::end
                                                                           : Form::start;
        }
        if (piece.form == Form::start) {
            open[piece.name].push_back(pieces.size());
        } else if (auto& starts = open[piece.name]; piece.form == Form::end && !starts.empty()) {
            pieces[starts.back()].partner = pieces.size();
            starts.pop_back();
        }
        pieces.push_back(std::move(piece));
    }
    return pieces;
}

/// The words of a tag's class attribute, in lower case, with a space on both sides of each.
std::string classesOf(std::string_view tag)
{
    const std::string small = lower(tag);
    const std::size_t begin = small.find(" class=");
    if (begin == std::string::npos || begin + 8 >= small.size())
        return "";
    const char quote = small[begin + 7];
    const bool isQuoted = quote == '"' || quote == '\'';
    const std::size_t value = begin + (isQuoted ? 8 : 7);
    const std::size_t end = isQuoted ? small.find(quote, value) : small.find_first_of(" />", value);
    return ' ' + small.substr(value, end - value) + ' ';
}

bool hasClass(const std::string& classes, Names names)
{
    return std::any_of(names.begin(), names.end(), [&](std::string_view name) {
        return classes.find(' ' + std::string(name) + ' ') != std::string::npos;
    });
}

bool isNumber(std::string_view text)
{
    constexpr std::string_view allowed = "0123456789 \t\r\n.:\u00A0";
    return text.find_first_not_of(allowed) == std::string_view::npos &&
           std::any_of(text.begin(), text.end(), isAsciiDigit);
}

/// Such as 7225, H7225 or G25.
bool isLexicalNumber(std::string_view text)
{
    text = trimmed(text);
    if (!text.empty() && isOneOf(lower(text.substr(0, 1)), {"g", "h"}))
        text.remove_prefix(1);
    return !text.empty() && std::all_of(text.begin(), text.end(), isAsciiDigit);
}

/// The rule by which an element is left out; nullopt if its text is kept.
/// @param text  of an element that contains only text; otherwise ""
std::optional<ReaderRule> ruleOf(const Piece& start, std::string_view text)
{
    const std::string& name = start.name;
    const std::string classes = classesOf(start.bytes);
    if (hasClass(classes, {"chapternum", "versenum", "chapter-num", "verse-num", "chapter-number",
                           "verse-number", "cnum", "vnum", "v-num"}) ||
        (name == "sup" && isNumber(text)))
        return ReaderRule::textNumber;
    if (isOneOf(name, {"f", "fn", "n", "note", "x", "xref"}) ||
        hasClass(classes, {"footnote", "footnotes", "note", "crossreference", "crossref"}))
        return ReaderRule::note;
    if (isOneOf(name, {"h1", "h2", "h3", "h4", "h5", "h6", "h", "heading", "title"}) ||
        hasClass(classes, {"heading", "sectionhead", "title"}))
        return ReaderRule::title;
    if (isOneOf(name, {"script", "style"}))
        return ReaderRule::outside;
    if (name == "m" || (name == "s" && isLexicalNumber(text)))
        return ReaderRule::attribute;
    return std::nullopt;
}

bool isBreak(const std::string& name)
{
    return isOneOf(name,
                   {"br", "p",  "div", "li",    "tr",         "td",      "th",      "pb",     "t",  "lb",
                    "hr", "ul", "ol",  "table", "blockquote", "section", "article", "header", "dd", "dt"});
}

/// Appends the text with character references resolved; unknown ones are kept unchanged.
void appendWithCharacters(std::string_view text, std::string& out)
{
    constexpr std::size_t longest = 12;
    while (!text.empty()) {
        const std::size_t plain = std::min(text.find('&'), text.size());
        out += text.substr(0, plain);
        text.remove_prefix(plain);
        const std::size_t end = text.substr(0, longest).find(';');
        const auto character =
            end == std::string_view::npos ? std::nullopt : referencedCharacter(text.substr(1, end - 1));
        if (character)
            icu::UnicodeString(static_cast<UChar32>(*character)).toUTF8String(out);
        else if (!text.empty())
            out += '&';
        text.remove_prefix(character ? end + 1 : std::min<std::size_t>(1, text.size()));
    }
}

std::string withCharacters(std::string_view text)
{
    std::string resolved;
    appendWithCharacters(text, resolved);
    return resolved;
}

/// Leaves out the text of the pieces by the rule, and their tags as tags.
void leaveOutPieces(CVerseCollector& verses, ReaderRule rule, const Piece* begin, const Piece* end)
{
    for (const Piece* piece = begin; piece != end; ++piece)
        verses.leaveOut(piece->form == Form::text ? rule : ReaderRule::tag, withCharacters(piece->bytes));
}

} // namespace

void addMarkedText(CVerseCollector& verses, std::string_view utf8, std::size_t line)
{
    if (utf8.find_first_of("<&") == std::string_view::npos)
        return verses.addText(utf8, line);
    const std::vector<Piece> pieces = piecesOf(utf8);
    for (std::size_t i = 0; i < pieces.size(); ++i) {
        const Piece& piece = pieces[i];
        if (piece.form == Form::text) {
            verses.addText(withCharacters(piece.bytes), line);
            continue;
        }
        if (piece.partner != 0) {
            const bool isPlain = piece.partner == i + 2 && pieces[i + 1].form == Form::text;
            if (const auto rule = ruleOf(piece, isPlain ? pieces[i + 1].bytes : "")) {
                leaveOutPieces(verses, *rule, &piece, &pieces[piece.partner] + 1);
                if (*rule != ReaderRule::attribute) { // lexical numbers may stand inside a word
                    verses.found(*rule, line);
                    verses.addGap();
                }
                i = piece.partner;
                continue;
            }
        }
        leaveOutPieces(verses, ReaderRule::tag, &piece, &piece + 1);
        if (isBreak(piece.name))
            verses.addBreak();
    }
}

void leaveOutMarkedText(CVerseCollector& verses, ReaderRule rule, std::string_view utf8)
{
    const std::vector<Piece> pieces = piecesOf(utf8);
    leaveOutPieces(verses, rule, pieces.data(), pieces.data() + pieces.size());
}

std::string withoutTags(std::string_view utf8)
{
    std::string text;
    for (const Piece& piece : piecesOf(utf8))
        if (piece.form == Form::text)
            appendWithCharacters(piece.bytes, text);
        else if (isBreak(piece.name))
            text += ' ';
    return text;
}

} // namespace Kedrin::ModTool
