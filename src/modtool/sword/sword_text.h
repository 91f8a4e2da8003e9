#pragma once

#include <string>
#include <string_view>

namespace Kedrin::ModTool {

/// The text of a verse or of a psalm title while it is read from a SWORD entry.
class CSwordText
{
public:
    /// @param utf8   without zero bytes
    /// @param piece  index of the piece of the entry
    void add(std::string_view utf8, std::size_t piece);

    /// The end of a line or a paragraph: words do not run together over it.
    void addBreak() { m_text += ' '; }

    /// A note was removed here: words do not run together over it, but a word that the source marks as one stays one.
    void addGap();
    void setInWord(bool isInWord);

    /// The name of God is shown in small capitals: its last text. In "LORD’s" the marked "’s" stays small.
    void setInName(bool isInName, std::size_t piece);

    /// The text, with a blank in each gap that needs one.
    std::string take() const;

private:
    std::string m_text;
    std::size_t m_lastBegin = 0; ///< of the text that was added last
    std::size_t m_lastPiece = 0;
    bool m_isInName = false;
    bool m_isInWord = false;
    bool m_hasGapInWord = false; ///< and nothing of the word followed
};

} // namespace Kedrin::ModTool
