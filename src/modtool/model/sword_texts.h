#pragma once

#include "source_bible.h"
#include "sword_repositories.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace Kedrin::ModTool {

/// Bibles in the form of SWORD.
class ISwordTexts
{
public:
    virtual ~ISwordTexts() = default;

    /// The names of all Bibles, sorted.
    virtual std::vector<std::string> bibles() const = 0;

    /// The title of a Bible, in UTF-8; its name where it has none.
    /// @param name  a full name
    virtual std::string title(const std::string& name) const = 0;

    /// The full name of a Bible, given its name, its abbreviation or a former name, in this order; case does
    /// not matter.
    /// @throws CBuildError
    ///     "no SWORD Bible is named \"%s\" (installed: %s)"
    ///     "several SWORD Bibles are named \"%s\": %s"
    virtual std::string resolve(const std::string& name) const = 0;

    /// Reads a whole Bible: plain text without headings, notes, references and lexical marks. Where several verses
    /// share one entry, the first has the text. Verses without an entry are not listed.
    /// @param name      a full name
    /// @param progress  called with the number of verses done and of all
    virtual SourceBible read(const std::string& name,
                             const std::function<void(std::size_t, std::size_t)>& progress) const = 0;

    /// A text that changes whenever the Bible may have changed: its configuration and the size and time of
    /// each of its files, whose contents are not read.
    virtual std::string fingerprint(const std::string& name) const = 0;
};

/// What commands need the SWORD library for. The program that most of them run in is linked without it.
class ISword
{
public:
    virtual ~ISword() = default;

    /// The Bibles installed for the user and the system.
    /// @throws CPartMissing
    virtual std::unique_ptr<ISwordTexts> installedTexts() const = 0;

    /// @throws CPartMissing
    virtual std::unique_ptr<ISwordRepositories> repositories() const = 0;
};

} // namespace Kedrin::ModTool
