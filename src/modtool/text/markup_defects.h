#pragma once

#include "stored_markup.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace Kedrin::ModTool {

/// What may be wrong with the markup of a stored verse.
enum class MarkupDefect
{
    bracket,
    unbalanced,
    deep,
    unknownTag,
    block,
    link,
    gotoChapter,
    image,
    style,
    script,
    comment,
    entity,
    foreignEntity
};

/// Judges the markup of stored verses.
class CMarkupDefects
{
public:
    struct Found
    {
        MarkupDefect defect;
        std::string_view where; ///< bytes of the verse; valid as long as those
    };

    /// Reads a verse. Linear in its length; memory stays bounded.
    void read(std::string_view stored);

    /// The text of the verse without tags, references resolved, Windows-1251. `?` stands for what that lacks.
    const std::string& plain() const { return m_plain; }

    /// In order of place but for tags that are never closed, which come last.
    const std::vector<Found>& found() const { return m_found; }

    static constexpr std::size_t maxDepth = 16;

private:
    void readPiece(const MarkupPiece& piece, std::string_view rest);
    void readReference(const MarkupPiece& piece);
    void readTag(const MarkupPiece& piece);
    void judgeAttributes(const MarkupPiece& tag);
    void judgeStart(const MarkupPiece& tag);
    void open(const std::string& name);
    void close(const std::string& name);
    void add(MarkupDefect defect) { m_found.push_back({defect, m_where}); }

    std::string_view m_where; ///< the tag or reference that is judged
    std::string m_plain;
    std::vector<std::string> m_open; ///< names of the open tags, at most maxDepth
    std::size_t m_tooDeep = 0;       ///< open tags beyond those
    std::vector<Found> m_found;
};

} // namespace Kedrin::ModTool
