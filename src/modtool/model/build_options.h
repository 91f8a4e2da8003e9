#pragma once

#include <optional>
#include <string>
#include <vector>

namespace Kedrin::ModTool {

/// How a module is to be built. Texts are UTF-8; an empty one leaves the choice to the source.
struct BuildOptions
{
    bool substitute = false; ///< replace characters that Windows-1251 lacks instead of rejecting the text
    bool refuseUnfitText = false; ///< reject a text that would lose more than one letter in a hundred
    std::string fullTitle;
    std::string shortTitle;
    std::string abbreviatedTitle;
    std::string versification;
    /// Use the source's book titles, where it has any, instead of the Bulgarian ones; nothing: only if the
    /// source is an export.
    std::optional<bool> sourceTitles;
    std::optional<std::vector<std::string>> copyright; ///< paragraphs instead of the source's
};

} // namespace Kedrin::ModTool
