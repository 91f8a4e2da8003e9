#pragma once

#include "rtf_tokens.h"
#include "source_findings.h"

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace Kedrin::ModTool {

/// The characters of a code page of one byte each.
class CCodePage
{
public:
    /// @param name  that the Unicode library knows
    explicit CCodePage(const char* name);

    std::string of(unsigned char byte) const; ///< UTF-8

private:
    std::array<char16_t, 256> m_characters;
};

/// Parses texts in RTF, and passes their parts to a derived class in the order in which they stand.
class CRtfParser
{
public:
    CRtfParser(const CRtfParser&) = delete;
    CRtfParser& operator=(const CRtfParser&) = delete;
    virtual ~CRtfParser() = default;

    void parse(std::string_view rtf);

protected:
    /// @param characters  of escapes; outlive this object
    explicit CRtfParser(const CCodePage& characters) : m_characters(characters) {}

    virtual void text(const std::string& utf8) = 0;
    virtual void leftOut(ReaderRule rule, std::string_view utf8) = 0;
    virtual void breaks() = 0; ///< the end of a line, paragraph or cell

    /// Text that is left out by the rule ends here.
    virtual void found(ReaderRule rule) = 0;

private:
    struct State
    {
        std::optional<ReaderRule> rule = {}; ///< by which the text is left out
        bool isRaised = false;
        int fallbacks = 1; ///< bytes after a control \u, for programs without Unicode
    };

    void take(const RtfToken& token);
    void takeFallback(const RtfToken& token);
    void closeGroup();
    void setRule(std::optional<ReaderRule> rule);
    void takeSymbol(std::string_view symbol);
    void takeControl(const RtfToken& token);
    void changeState(std::string_view word, bool isOn);
    void flush();

    const CCodePage& m_characters;
    std::vector<State> m_outer;
    State m_state;
    std::string m_text;
    int m_fallbacks = 0;
};

} // namespace Kedrin::ModTool
