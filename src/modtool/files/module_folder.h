#pragma once

#include <string>
#include <string_view>

namespace Kedrin::ModTool {

/// Rejects a file inside the module's folder, which would be deleted with the old module.
/// @throws CBuildError  "%s: is inside the module's folder, which is replaced as a whole", and what
///                      CModuleFolder's constructor throws for a folder that it does not replace
void checkOutside(const std::string& fileName, const std::string& folder);

/// A module folder being built. It is written beside its final path, under a hidden name that the reader
/// ignores, and moved into place when complete. The path always holds the old module, the new one, or
/// nothing.
///
///     CModuleFolder folder("modules/bibles/kjv");
///     folder.write("BibleTitles.txt", content);
///     folder.publish();
///
/// Only one build of a folder runs at a time: a lock is held from construction to destruction. Leftovers of
/// an interrupted build are removed by the next one; an unpublished folder is removed by the destructor.
class CModuleFolder
{
public:
    /// @param path  the module's folder, absent, empty or a module (it contains BibleTitles.txt); links are
    ///              followed. The parent folder is created if missing.
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

    /// Writes and fsyncs one file.
    /// @throws CBuildError  "%s: cannot be written (%s)"
    void write(std::string_view name, std::string_view content);

    /// Moves the folder into place, atomically replacing an existing module, which a failure leaves
    /// untouched.
    /// @throws CBuildError  "%s: cannot be written (%s)"
    void publish();

private:
    void lock();
    bool isNamed() const;
    void unlock() const;
    void moveIntoPlace();
    void rollBack(); ///< undoes moveIntoPlace() as far as possible
    void removeLeftovers();

    std::string m_path;
    std::string m_parent;
    std::string m_beside;
    /// Temporary path of the old module on file systems without RENAME_EXCHANGE.
    std::string m_replaced;
    std::string m_lockName;
    int m_lock = -1;
};

} // namespace Kedrin::ModTool
