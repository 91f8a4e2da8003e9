#pragma once

#include <string>

namespace Kedrin::ModTool {

/// A folder for a text while it is downloaded, hidden in the folder of downloaded texts
/// (${XDG_DATA_HOME:-~/.local/share}/kedrin/sword). It goes with this object, and the folder around it where it is
/// empty; those of programs that were killed go a day later.
class CTextFolder
{
public:
    /// @throws CBuildError  "%s: cannot be created (%s)"
    CTextFolder();
    ~CTextFolder();
    CTextFolder(const CTextFolder&) = delete;
    CTextFolder& operator=(const CTextFolder&) = delete;

    const std::string& path() const { return m_path; }

    /// Renames it, in the place of an older text of the name.
    /// @throws CBuildError  "%s: cannot be written (%s)"
    void moveTo(const std::string& name) const;

private:
    std::string m_parent;
    std::string m_path;
};

inline constexpr const char* configurationFolder = "mods.d"; ///< of a repository and of a text's folder

} // namespace Kedrin::ModTool
