#pragma once

#include <string_view>

namespace Kedrin::ModTool {

/// Where a note was removed from a text. A space is inserted if words would join, except inside a word that the source
/// marks as one.
class CNoteGap
{
public:
    /// A note was removed here.
    /// @param inText  whether from a verse or title
    void add(bool inText) { (m_inWord ? m_isInWord : m_isOpen) = inText; }

    void beginWord() { m_inWord = true; }
    void endWord();

    /// Whether a space is to stand between the text before the gap and the next one, which closes the gap.
    bool needsSpace(std::string_view before, std::string_view next);

private:
    bool m_isOpen = false;
    bool m_inWord = false;
    bool m_isInWord = false; ///< inside a marked word, of which nothing has followed
};

} // namespace Kedrin::ModTool
