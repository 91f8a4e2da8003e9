#include "rtf_text.h"

#include "ascii.h"
#include "rtf_parser.h"
#include "rtf_tokens.h"
#include "text_input.h"

#include <unordered_set>

namespace Kedrin::ModTool {

namespace {

class CVerseRtf final : public CRtfParser
{
public:
    CVerseRtf(const CCodePage& characters, CVerseCollector& verses, std::size_t line)
        : CRtfParser(characters),
          m_verses(verses),
          m_line(line)
    {}

private:
    void text(const std::string& utf8) override { m_verses.addText(utf8, m_line); }
    void leftOut(ReaderRule rule, std::string_view utf8) override { m_verses.leaveOut(rule, utf8); }
    void breaks() override { m_verses.addBreak(); }
    void found(ReaderRule rule) override
    {
        m_verses.found(rule, m_line);
        m_verses.addGap();
    }

    CVerseCollector& m_verses;
    std::size_t m_line;
};

class CPlainRtf final : public CRtfParser
{
public:
    explicit CPlainRtf(const CCodePage& characters) : CRtfParser(characters) {}

    std::string all;

private:
    void text(const std::string& utf8) override { all += utf8; }
    void leftOut(ReaderRule, std::string_view) override {}
    void breaks() override { all += ' '; }
    void found(ReaderRule) override {}
};

} // namespace

bool isRtf(std::string_view text)
{
    static const std::unordered_set<std::string_view> words{"rtf",   "par", "pard", "plain", "cf",
                                                            "f",     "fs",  "b",    "i",     "ul",
                                                            "super", "u",   "line", "tab",   "nosupersub"};
    for (std::size_t i = text.find('\\'); i != std::string_view::npos && i + 1 < text.size();
         i = text.find('\\', i + 2)) {
        const std::string_view rest = text.substr(i);
        if (escapedByte(rest) || (isAsciiLetter(rest[1]) && words.contains(controlAt(rest).word)))
            return true;
    }
    return false;
}

CRtfText::CRtfText(std::string_view bytes)
    : m_codePage(isWindows1251(bytes) ? "windows-1251" : "windows-1252"),
      m_characters(m_codePage)
{}

void CRtfText::appendEscapedBytes(std::string_view rtf, std::string& bytes)
{
    while (!rtf.empty()) {
        const RtfToken token = takeRtfToken(rtf);
        if (token.kind == RtfToken::Kind::escape)
            bytes += static_cast<char>(token.byte);
        else if (!bytes.empty() && bytes.back() != ' ')
            bytes += ' ';
    }
}

void CRtfText::addTo(CVerseCollector& verses, std::string_view rtf, std::size_t line) const
{
    CVerseRtf(m_characters, verses, line).parse(rtf);
}

std::string CRtfText::plainOf(std::string_view rtf)
{
    std::string escaped;
    appendEscapedBytes(rtf, escaped);
    const CRtfText text(escaped);
    CPlainRtf parser(text.m_characters);
    parser.parse(rtf);
    return parser.all;
}

std::string CRtfText::withCharacters(std::string_view rtf) const
{
    std::string characters;
    while (!rtf.empty()) {
        std::size_t length = 1;
        const bool isControl = rtf.size() > 1 && rtf[0] == '\\';
        if (const auto byte = escapedByte(rtf)) {
            characters += m_characters.of(*byte);
            length = 4;
        } else if (isControl && rtf[1] == 'u' && controlAt(rtf).word == "u" && controlAt(rtf).number) {
            characters += unicodeCharacter(*controlAt(rtf).number);
            length = controlAt(rtf).bytes.size();
        } else {
            length = isControl ? 2 : 1;
            characters += rtf.substr(0, length);
        }
        rtf.remove_prefix(length);
    }
    return characters;
}

} // namespace Kedrin::ModTool
