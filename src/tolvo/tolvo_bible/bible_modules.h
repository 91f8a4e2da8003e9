#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

namespace Kedrin::Tolvo {

class CBible;
class CBibleInfo;
class CBibleStructure;

/// The translations installed under one modules directory (doc/formats/module-folder.md): every sub-folder whose
/// name does not begin with "." is a module, and its index is its place in the order of names without regard to
/// case. The list is made once; no module file is opened for it.
class CBibleModules
{
public:
    /// @param modulesFolder  native path; one trailing '/' is dropped. A folder that does not exist holds no module.
    /// @throws std::runtime_error only
    explicit CBibleModules(const std::string& modulesFolder);
    virtual ~CBibleModules();
    CBibleModules(const CBibleModules&) = delete;
    CBibleModules& operator=(const CBibleModules&) = delete;

    unsigned int count() const { return static_cast<unsigned int>(m_bibleDirs.size()); }

    /// The module's information record, read at the first call and kept; owned by the catalogue.
    /// @throws std::out_of_range  "CBibleModules::info(): index out of range"; else only std::ios_base::failure
    const CBibleInfo* info(unsigned int bibleIndex) const;

    /// A translation, loaded anew at each call; the caller owns it, and it outlives the catalogue.
    /// @throws std::out_of_range  "CBibleModules::loadBible(): index out of range"; else only std::ios_base::failure.
    ///     A module that fails to load throws neither, so it ends the program: call ValidateBible() first where a
    ///     module may be damaged.
    const CBible* loadBible(unsigned int bibleIndex) const;

    /// Proves that loadBible() will succeed and that the translation can be read from its beginning on. Leaves no open
    /// file and no memory behind.
    /// @throws std::out_of_range   "CBibleModules::loadBible(): index out of range"
    /// @throws std::runtime_error  what loading the module throws, text included, and besides what CBible::Validate
    ///                             refuses
    void ValidateBible(unsigned int bibleIndex) const;

    /// The common numbering: BibleStructure.txt of the modules directory, 77 books; read at the first call that
    /// succeeds and kept; owned by the catalogue.
    /// @throws std::ios_base::failure  what CBibleStructure throws; the next call tries again
    const CBibleStructure* globalStructure() const;

private:
    std::string m_modulesDir;
    std::vector<std::string> m_bibleDirs; ///< [module index]: path of its folder, without a trailing '/'
    mutable std::map<unsigned int, std::unique_ptr<CBibleInfo>> m_infos;
    mutable std::unique_ptr<CBibleStructure> m_globalStructure;
};

} // namespace Kedrin::Tolvo
