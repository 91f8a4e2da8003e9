#pragma once

#include <string>
#include <string_view>

namespace Kedrin::ModTool {

/// Sees to it that a file is not lost with the module that is replaced.
/// @throws CBuildError  "%s: is inside the module's folder, which is replaced as a whole", and what CModuleFolder's
///                      constructor says of a folder that it does not replace
void checkOutside(const std::string& fileName, const std::string& folder);

/// A module folder in the making. It is written beside its place, under a name that begins with "." and so is no
/// module to the reader, and moved there when it is whole: at any moment there is the module of before, or the new
/// one, or none, never a part of one.
///
///     CModuleFolder folder("modules/bibles/kjv");
///     folder.write("BibleTitles.txt", content);
///     folder.publish();
///
/// One build of a folder at a time: a lock is held from construction to destruction. What an interrupted build left
/// behind is removed by the next one; what is not published is removed by the destructor.
class CModuleFolder
{
public:
    /// @param path  the module's folder, absent, empty or a module (it holds BibleTitles.txt); of a link, where it
    ///              leads. The folder around it is made where it is missing.
    /// @throws CFolderBusy  "%s: another build of this folder is running"
    /// @throws CBuildError  "%s: is not a folder", "%s: is not empty and contains no module, so it is not replaced",
    ///                      "%s: cannot be written (%s)"
    explicit CModuleFolder(const std::string& path);
    ~CModuleFolder();
    CModuleFolder(const CModuleFolder&) = delete;
    CModuleFolder& operator=(const CModuleFolder&) = delete;

    const std::string& path() const { return m_path; }
    const std::string& besidePath() const
    {
        return m_beside;
    } ///< where the files are until they are published

    /// Writes one file, and has the disk keep it.
    /// @throws CBuildError  "%s: cannot be written (%s)"
    void write(std::string_view name, std::string_view content);

    /// Moves the folder to its place, in one step where another module is there. What fails leaves that one there.
    /// @throws CBuildError  "%s: cannot be written (%s)"
    void publish();

private:
    void lock();
    void unlock() const;
    void takePlace();
    void giveBack(); ///< undoes takePlace(), as far as the disk lets it
    void removeLeftovers();

    std::string m_path;
    std::string m_parent;
    std::string m_beside;
    /// Where the module of before is while it makes room, on disks that cannot exchange.
    std::string m_replaced;
    std::string m_lockName;
    int m_lock = -1;
};

} // namespace Kedrin::ModTool
