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
        milestone, ///< \qt-s |who="Pilate"\*, taken as a whole
        none       ///< after the last
    };

    Kind kind;
    std::string_view name; ///< of a marker: without backslash, plus sign and star: "q1"
    std::string_view text; ///< of a text; of a milestone, its attributes and end
    std::size_t line;      ///< from 1
};

/// Cuts a USFM text into its markers and texts. One blank or line end after a marker belongs to it; \v and \c may stand
/// close to their number ("\v24").
class CUsfmTokens
{
public:
    /// @param utf8  outlives this object and the tokens
    explicit CUsfmTokens(std::string_view utf8) : m_rest(utf8) {}

    UsfmToken next();

    /// The name of the end marker that comes next: what stands behind a '|' before it may be attributes. "" where none
    /// comes.
    std::string_view nextEndMarker() const;

    /// The text up to the end of the line or the next marker; reads on behind it.
    std::string_view restOfLine();

    /// The text up to the next blank, line end or marker, behind blanks; reads on behind it and one blank, which may be a
    /// no-break one.
    std::string_view word();

    /// The number of a chapter or verse, behind blanks; reads on behind it as word() does, or at the text where that
    /// stands close to it ("3And", "3аз"). "" where no number stands there.
    std::string_view number();

private:
    std::string_view take(std::size_t byteCount);
    UsfmToken marker();
    bool takeMilestoneEnd(bool isMilestone);

    std::string_view m_rest;
    std::size_t m_line = 1;
};

/// A text without the signs that stand for a blank or for a place where a line may be broken: '~', "//".
std::string plainUsfm(std::string_view text);

/// Where the attributes in a text before an end marker begin, at their '|'; npos where it has none. Attributes have names
/// and values in quotes, but markers that have one without a name ("w") take anything for it.
/// @param endMarker  its name; "" where none follows
std::size_t attributesBegin(std::string_view text, std::string_view endMarker);

} // namespace Kedrin::ModTool
