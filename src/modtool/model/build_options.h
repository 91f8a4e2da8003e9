#pragma once

#include <optional>
#include <string>
#include <vector>

namespace Kedrin::ModTool {

/// How a module is to be built. Texts are UTF-8; an empty one leaves the choice to the source.
struct BuildOptions
{
    bool substitute = false;      ///< replace what Windows-1251 lacks, instead of refusing the text
    bool refuseUnfitText = false; ///< refuse a text of which more than one letter in a hundred is lost
    std::string fullTitle;
    std::string shortTitle;
    std::string abbreviatedTitle;
    std::string versification;
    /// Call the books as the source does, where it does, instead of in Bulgarian; unsaid: only if the source is an export
    std::optional<bool> sourceTitles;
    std::optional<std::vector<std::string>> copyright; ///< paragraphs instead of the source's
};

} // namespace Kedrin::ModTool
