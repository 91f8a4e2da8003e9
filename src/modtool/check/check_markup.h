#pragma once

#include "check_table.h"

#include <string>
#include <string_view>
#include <vector>

namespace Kedrin::ModTool {

/// Takes the markup of stored verses apart, as the chapter view's rich text understands it.
class CMarkupReader
{
public:
    struct Defect
    {
        CheckID check;
        std::string_view where; ///< bytes of the verse; valid as long as those
    };

    /// Reads a verse. Linear in its length; memory stays bounded.
    void read(std::string_view stored);

    /// The text of the verse without tags, entities resolved, Windows-1251. `?` stands for what that lacks.
    const std::string& plain() const { return m_plain; }

    /// What is wrong with the verse; in order of place but for tags that are never closed, which come last.
    const std::vector<Defect>& defects() const { return m_defects; }

    static constexpr std::size_t maxDepth = 16;

private:
    void readTag();
    void takeBracketForText();
    void applyTag(const std::string& name, bool opens);
    void readDeclaration();
    std::size_t readAttributes(std::string_view tag);
    void judgeAttribute(std::string_view name, std::string_view value);
    void judgeTag(std::string_view name, bool opens);
    void open(std::string_view name);
    void close(std::string_view name);
    void readEntity();
    void addDefect(CheckID check) { m_defects.push_back({check, m_item}); }

    std::string_view m_rest;
    std::string_view m_item; ///< the tag or entity being read
    std::string m_plain;
    std::vector<std::string> m_open; ///< names of the open tags, at most maxDepth
    std::size_t m_tooDeep = 0;       ///< open tags beyond those
    std::size_t m_brackets = 0;      ///< of those that begin no tag
    bool m_isGoto = false;           ///< the tag has the name of chapter links
    std::vector<Defect> m_defects;
};

} // namespace Kedrin::ModTool
