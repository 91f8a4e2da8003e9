#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace Kedrin::ModTool {

/// A piece of a stored verse.
struct MarkupPiece
{
    enum class Kind
    {
        text,
        character, ///< a reference, "&lt;" or "&#1073;"
        ampersand, ///< a "&" that begins no known reference
        startTag,  ///< also a tag that has no end, as in <br> and <b/>
        endTag,
        declaration,     ///< a comment, or something else that begins with "<!" or "<?"
        openDeclaration, ///< the "<" of one that does not end; for the view the verse ends here
        bracket          ///< a "<" that begins no tag, or whose tag does not end
    };

    Kind kind = Kind::text;
    std::string_view bytes; ///< of the verse; valid as long as that
    char32_t character = 0; ///< of a reference
    std::string name;       ///< of a tag, in small letters
    std::vector<std::pair<std::string, std::string_view>>
        attributes; ///< of a tag: names in small letters, values
};

/// Divides a stored verse, Windows-1251 with markup, into pieces; together they are the verse. Tags and references are
/// what the rich text of the chapter view takes for such, but for a "<" before anything else than a name, which stays.
/// Linear in the length of the verse.
class CStoredMarkup
{
public:
    /// @param stored  outlives this object
    explicit CStoredMarkup(std::string_view stored) : m_rest(stored) {}

    /// Goes on to the next piece; false where there is none.
    bool next();

    const MarkupPiece& piece() const { return m_piece; } ///< the one that next() found

private:
    void readBracket();
    bool readDeclaration();
    bool readTag();
    std::size_t readAttributes(std::string_view tag);
    void readReference();
    void take(MarkupPiece::Kind kind, std::size_t byteCount);

    std::string_view m_rest;
    MarkupPiece m_piece;
    std::size_t m_brackets = 0;
};

/// Whether the tag begins a line or a paragraph, so that words do not run together over it.
/// @param name  in small letters
bool separatesWords(std::string_view name);

/// Whether the tag begins a paragraph.
bool isBlockTag(std::string_view name);

/// What a reader sees of a stored verse, as UTF-8. As the window does, it ends at the first zero byte. Tags and
/// comments go (one that separates words leaves a blank), references become their characters; what
/// begins a comment that does not end stays. Control characters and white space become blanks, of several one, of those at the ends none, so that the
/// result is one line and harmless on a terminal.
std::string plainText(std::string_view stored);

/// The same of a title, a word or a line of copyright, which hold no markup.
std::string plainLine(std::string_view stored);

} // namespace Kedrin::ModTool
