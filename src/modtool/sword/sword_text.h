#pragma once

#include <string>
#include <string_view>

namespace Kedrin::ModTool {

/// Builds the text of a verse or psalm title from a SWORD entry.
class CSwordText
{
public:
    /// @param utf8   without zero bytes
    /// @param piece  index of the piece of the entry
    void add(std::string_view utf8, std::size_t piece);

    /// The end of a line or paragraph: separates words.
    void addBreak() { m_text += ' '; }

    /// A note was removed: insert a space if words would join, except inside one marked word.
    void addGap();
    void setInWord(bool isInWord);

    /// The divine name: its last text is capitalised, so that in "LORD’s" the marked "’s" stays small.
    void setInName(bool isInName, std::size_t piece);

    /// The text, with a space in each gap that needs one.
    std::string take() const;

private:
    std::string m_text;
    std::size_t m_lastBegin = 0; ///< of the text that was added last
    std::size_t m_lastPiece = 0;
    bool m_isInName = false;
    bool m_isInWord = false;
    bool m_hasGapInWord = false; ///< and no text of the word followed
};

} // namespace Kedrin::ModTool
