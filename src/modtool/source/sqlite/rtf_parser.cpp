#include "rtf_parser.h"

#include <unicode/unistr.h>

#include <algorithm>
#include <unordered_set>
#include <utility>

namespace Kedrin::ModTool {

namespace {

using Kind = RtfToken::Kind;

bool isBreak(std::string_view word)
{
    static const std::unordered_set<std::string_view> words{"par", "line", "tab", "cell",
                                                            "row", "sect", "page"};
    return words.contains(word);
}

/// Whether the group that begins with this control describes the document.
bool describes(std::string_view word)
{
    static const std::unordered_set<std::string_view> words{
        "fonttbl", "colortbl", "stylesheet", "info", "pict", "header", "footer", "object", "fldinst"};
    return words.contains(word);
}

/// Such as H7225, or several of them.
bool isLexicalNumbers(std::string_view text)
{
    return text.find_first_of("GH") != std::string_view::npos &&
           text.find_first_not_of("GH0123456789 ,;[]()<>") == std::string_view::npos;
}

/// Such as 1 or [1].
bool isMark(std::string_view text)
{
    return text.find_first_not_of("0123456789 .:[]()*") == std::string_view::npos;
}

} // namespace

CCodePage::CCodePage(const char* name)
{
    for (unsigned int i = 0; i < m_characters.size(); ++i) {
        const char byte = static_cast<char>(i);
        m_characters[i] = icu::UnicodeString(&byte, 1, name).charAt(0);
    }
}

std::string CCodePage::of(unsigned char byte) const
{
    std::string utf8;
    return icu::UnicodeString(m_characters[byte]).toUTF8String(utf8);
}

void CRtfParser::parse(std::string_view rtf)
{
    while (!rtf.empty())
        take(takeRtfToken(rtf));
    flush();
    setRule(std::nullopt);
}

void CRtfParser::take(const RtfToken& token)
{
    if (m_fallbacks > 0 && (token.kind == Kind::text || token.kind == Kind::escape))
        return takeFallback(token);
    m_fallbacks = 0;
    switch (token.kind) {
    case Kind::text:
        m_text += token.bytes;
        break;
    case Kind::escape:
        m_text += m_characters.of(token.byte);
        break;
    case Kind::open:
        flush();
        m_outer.push_back(m_state);
        break;
    case Kind::close:
        closeGroup();
        break;
    case Kind::symbol:
        takeSymbol(token.bytes);
        break;
    case Kind::control:
        takeControl(token);
    }
}

void CRtfParser::takeFallback(const RtfToken& token)
{
    std::string fallback;
    std::string_view rest;
    if (token.kind == Kind::text) {
        const auto count = std::min(static_cast<std::size_t>(m_fallbacks), token.bytes.size());
        const auto end = std::find_if(token.bytes.begin(), token.bytes.begin() + count,
                                      [](char c) { return static_cast<unsigned char>(c) >= 0x80; });
        fallback.assign(token.bytes.begin(), end);
        rest = token.bytes.substr(fallback.size());
        m_fallbacks = rest.empty() ? m_fallbacks - static_cast<int>(fallback.size()) : 0;
    } else {
        fallback = m_characters.of(token.byte);
        --m_fallbacks;
    }
    if (fallback.find_first_not_of('?') != std::string::npos) {
        flush();
        leftOut(ReaderRule::tag, fallback);
    }
    m_text += rest;
}

void CRtfParser::closeGroup()
{
    flush();
    if (m_outer.empty())
        return;
    setRule(m_outer.back().rule);
    m_state = m_outer.back();
    m_outer.pop_back();
}

void CRtfParser::setRule(std::optional<ReaderRule> rule)
{
    if (m_state.rule && m_state.rule != rule && m_state.rule != ReaderRule::tag)
        found(*m_state.rule);
    m_state.rule = rule;
}

void CRtfParser::takeSymbol(std::string_view symbol)
{
    m_text += rtfCharacter(symbol);
    if (symbol == "\\*" && !m_outer.empty()) {
        flush();
        setRule(ReaderRule::tag);
    }
}

void CRtfParser::takeControl(const RtfToken& token)
{
    if (token.word == "u" && token.number) {
        m_text += unicodeCharacter(*token.number);
        m_fallbacks = m_state.fallbacks;
        return;
    }
    flush();
    leftOut(ReaderRule::tag, token.bytes);
    m_text += rtfCharacter(token.word);
    if (isBreak(token.word))
        breaks();
    else if (token.word == "uc")
        m_state.fallbacks = std::clamp(token.number.value_or(1), 0, 10);
    else
        changeState(token.word, token.number != 0);
}

void CRtfParser::changeState(std::string_view word, bool isOn)
{
    if (describes(word) && !m_outer.empty())
        setRule(ReaderRule::tag);
    else if (word == "footnote" && !m_outer.empty())
        setRule(ReaderRule::note);
    else if (word == "super")
        m_state.isRaised = isOn;
    else if (word == "nosupersub" || word == "plain")
        m_state.isRaised = false;
    else if (word == "v" && m_state.rule.value_or(ReaderRule::outside) == ReaderRule::outside)
        setRule(isOn ? std::optional(ReaderRule::outside) : std::nullopt);
}

void CRtfParser::flush()
{
    const std::string utf8 = std::exchange(m_text, {});
    if (utf8.empty())
        return;
    if (m_state.rule)
        leftOut(*m_state.rule, utf8);
    else if (m_state.isRaised && isLexicalNumbers(utf8))
        leftOut(ReaderRule::attribute, utf8);
    else if (m_state.isRaised && isMark(utf8)) {
        leftOut(ReaderRule::textNumber, utf8);
        found(ReaderRule::textNumber);
    } else {
        text(utf8);
    }
}

} // namespace Kedrin::ModTool
