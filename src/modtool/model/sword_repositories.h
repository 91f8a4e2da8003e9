#pragma once

#include "progress.h"
#include "source_bible.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace Kedrin::ModTool {

/// A place that SWORD texts can be taken from.
struct SwordRepository
{
    std::string name;
    std::string address; ///< "http://...", "https://...", "ftp://..." or a folder, without '/' at its end

    bool isRemote() const { return address.find("://") != std::string::npos; }
};

/// The repository that a command line names: a known one, by its name, an address ("file://" for a folder), or a folder.
/// @throws CNotFound  "\"%s\" is not the name of a known repository, an address (http, https or ftp) or a folder"
SwordRepository repositoryNamed(const std::string& typed, const std::vector<SwordRepository>& known);

/// A Bible that a repository offers, as its catalogue describes it; UTF-8 without control characters.
struct OfferedText
{
    std::string name;
    std::string language; ///< code: "bg"; "" where it is not stated
    std::string title;
    std::uint64_t byteCount; ///< installed; 0 where it is not stated
};

/// A text that was taken from a repository and read, in a temporary folder that goes with this object.
class IFetchedText
{
public:
    virtual ~IFetchedText() = default;

    virtual const SourceBible& bible() const = 0;

    /// Moves the text into the folder of downloaded texts, in the place of an older one.
    /// @throws CBuildError  "%s: cannot be written (%s)"
    virtual void keep() = 0;
};

/// The repositories of SWORD texts. All that they send is checked before it is used.
class ISwordRepositories
{
public:
    virtual ~ISwordRepositories() = default;

    /// Those that the user and the system have configured for SWORD.
    virtual std::vector<SwordRepository> known() const = 0;

    /// The Bibles of a repository, sorted by name.
    /// @throws CBuildError  "%s: %s", the address and why there is no list
    virtual std::vector<OfferedText> offered(const SwordRepository& repository,
                                             IProgress& progress) const = 0;

    /// Takes a Bible from a repository. Its name's case does not matter.
    /// @throws CNotFound    the repository does not offer it
    /// @throws CBuildError  "%s: %s", the address or the file and what is wrong with it
    virtual std::unique_ptr<IFetchedText> fetch(const SwordRepository& repository, const std::string& name,
                                                IProgress& progress) const = 0;
};

} // namespace Kedrin::ModTool
