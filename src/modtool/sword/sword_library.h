#pragma once

#include "source_bible.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace Kedrin::ModTool {

/// The SWORD modules installed for the user and the system, as the SWORD library finds them. Nothing is
/// written to the standard streams. One object serves one thread.
class CSwordLibrary
{
public:
    CSwordLibrary();
    ~CSwordLibrary();
    CSwordLibrary(const CSwordLibrary&) = delete;
    CSwordLibrary& operator=(const CSwordLibrary&) = delete;

    /// The names of all Bibles, sorted.
    std::vector<std::string> bibles() const;

    /// The full name of a Bible, given its name, its abbreviation or a former name, in this order; case does
    /// not matter.
    /// @throws CBuildError
    ///     "no SWORD Bible is named \"%s\" (installed: %s)"
    ///     "several SWORD Bibles are named \"%s\": %s"
    std::string resolve(const std::string& name) const;

    /// Reads a whole Bible: plain text without headings, notes, references and lexical marks. Where several verses
    /// share one entry, the first has the text. Verses without an entry are not listed.
    /// @param name      a full name
    /// @param progress  called with the number of verses done and of all
    SourceBible read(const std::string& name,
                     const std::function<void(std::size_t, std::size_t)>& progress) const;

    /// A text that changes whenever the Bible may have changed: its configuration and the size and time of
    /// each of its files, whose contents are not read.
    std::string fingerprint(const std::string& name) const;

private:
    class Impl;
    std::unique_ptr<Impl> m_impl;
};

} // namespace Kedrin::ModTool
