#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

namespace Kedrin::Tolvo {

class CBible;
class CBibleInfo;
class CBibleStructure;

/// The translations installed under one modules directory (doc/formats/module-folder.md): every sub-folder
/// whose name does not begin with "." is a module, and its index is its position in the list sorted by name,
/// ignoring case. The list is made once; no module file is opened for it.
class CBibleModules
{
public:
    /// @param modulesFolder  native path; one trailing '/' is dropped. A folder that does not exist has no
    ///                       modules.
    /// @throws std::runtime_error only
    explicit CBibleModules(const std::string& modulesFolder);
    virtual ~CBibleModules();
    CBibleModules(const CBibleModules&) = delete;
    CBibleModules& operator=(const CBibleModules&) = delete;

    unsigned int count() const { return static_cast<unsigned int>(m_bibleDirs.size()); }

    /// The module's information record, read on the first call and cached; owned by the catalogue.
    /// @throws std::out_of_range  "CBibleModules::info(): index out of range"; else only
    ///                            std::ios_base::failure
    const CBibleInfo* info(unsigned int bibleIndex) const;

    /// A translation, loaded anew at each call; the caller owns it, and it outlives the catalogue.
    /// @throws std::out_of_range  "CBibleModules::loadBible(): index out of range"; else only
    ///                            std::ios_base::failure.
    ///     A module that fails to load throws neither, so it ends the program: call ValidateBible() first
    ///     where a module may be damaged.
    const CBible* loadBible(unsigned int bibleIndex) const;

    /// Checks that loadBible() will succeed and that the first chapter of the translation can be read. Leaves
    /// no file open and no memory allocated.
    /// @throws std::out_of_range   "CBibleModules::loadBible(): index out of range"
    /// @throws std::runtime_error  the exceptions of loading the module, with their texts, and the additional
    ///                             ones of CBible::Validate
    void ValidateBible(unsigned int bibleIndex) const;

    /// The global numbering: BibleStructure.txt of the modules directory, 77 books; read by the first call
    /// that succeeds and cached; owned by the catalogue.
    /// @throws std::ios_base::failure  as CBibleStructure; the next call tries again
    const CBibleStructure* globalStructure() const;

private:
    std::string m_modulesDir;
    std::vector<std::string> m_bibleDirs; ///< [module index]: path of its folder, without a trailing '/'
    mutable std::map<unsigned int, std::unique_ptr<CBibleInfo>> m_infos;
    mutable std::unique_ptr<CBibleStructure> m_globalStructure;
};

} // namespace Kedrin::Tolvo
