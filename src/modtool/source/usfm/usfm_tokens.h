#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace Kedrin::ModTool {

/// A piece of a USFM text: a marker or the text up to the next one.
struct UsfmToken
{
    enum class Kind
    {
        text,
        marker,    ///< \p, \v, \wj, \+nd
        endMarker, ///< \wj*, \+nd*
        milestone, ///< \qt-s |who="Pilate"\*, as one token
        none       ///< after the last
    };

    Kind kind;
    std::string_view name; ///< of a marker: without backslash, plus sign and star: "q1"
    std::string_view text; ///< of a text; of a milestone, its attributes and end
    std::size_t line;      ///< from 1
};

/// Splits a USFM text into markers and texts. One space or line end after a marker belongs to it; \v and \c
/// may be directly followed by their number ("\v24").
class CUsfmTokens
{
public:
    /// @param utf8  must outlive this object and the tokens
    explicit CUsfmTokens(std::string_view utf8) : m_rest(utf8) {}

    UsfmToken next();

    /// The name of the end marker that comes next, before which attributes may follow a '|'; "" if none
    /// comes.
    std::string_view nextEndMarker() const;

    /// Reads the text up to the end of the line or the next marker.
    std::string_view restOfLine();

    /// Skips spaces and reads the text up to the next space, line end or marker, and one space after it,
    /// which may be a no-break space.
    std::string_view word();

    /// Skips spaces and reads the number of a chapter or verse, as word() does; text directly after it
    /// ("3And", "3аз") is left. "" if there is no number.
    std::string_view number();

private:
    std::string_view take(std::size_t byteCount);
    UsfmToken marker();
    bool takeMilestoneEnd(bool isMilestone);

    std::string_view m_rest;
    std::size_t m_line = 1;
};

/// The text with '~' (no-break space) and "//" (optional line break) replaced by spaces.
std::string plainUsfm(std::string_view text);

/// Where the attributes in a text before an end marker begin, at their '|'; npos where it has none. Attributes have names
/// and values in quotes, but markers that have one without a name ("w") take anything for it.
/// @param endMarker  its name; "" where none follows
std::size_t attributesBegin(std::string_view text, std::string_view endMarker);

} // namespace Kedrin::ModTool
