#pragma once

#include "temp_folder.h"

#include <string>
#include <utility>
#include <vector>

namespace build_test {

/// SWORD Bibles made for a test, in a folder of their own; while the object lives, the library sees no others.
class MadeSword
{
public:
    MadeSword();
    ~MadeSword();
    MadeSword(const MadeSword&) = delete;
    MadeSword& operator=(const MadeSword&) = delete;

    using Entries = std::vector<std::pair<std::string, std::string>>; ///< "Gen 1:1", raw entry

    struct Form
    {
        std::string markup = "OSIS";
        bool isCompressed = false;
    };

    /// Installs a Bible.
    /// @param configuration    more lines of its configuration
    /// @param versification    a name of the library's
    void add(const std::string& name, const Entries& entries, const std::string& configuration = {},
             const std::string& versification = "KJV") const
    {
        add(name, entries, configuration, versification, Form());
    }
    void add(const std::string& name, const Entries& entries, const std::string& configuration,
             const std::string& versification, const Form& form) const;

    /// Has the second verse share the entry of the first, as a text does that joins verses.
    void link(const std::string& name, const std::string& first, const std::string& second) const;

    const std::string& path() const { return m_path; }

private:
    test_support::TempFolder m_folder;
    std::string m_path;
    std::vector<std::pair<std::string, std::string>> m_environment; ///< what was set before
};

} // namespace build_test
