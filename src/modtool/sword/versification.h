#pragma once

#include "module_data.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace Kedrin::ModTool {

/// One of the SWORD library's versification systems, and where its verses stand in the common numbering.
class CVersification
{
public:
    /// @throws CBuildError  "unknown versification \"%s\" (known: %s)"
    explicit CVersification(const std::string& name);

    /// The names of all systems, KJV first, then in the order of the alphabet.
    static std::vector<std::string> names();

    /// The system with most chapters that have just as many verses as the books given; of equals, the first.
    static CVersification bestFor(const std::vector<ModuleBook>& books);

    const std::string& name() const { return m_name; }

    /// In how many chapters of the books the system has just as many verses.
    unsigned int agreement(const std::vector<ModuleBook>& books) const;

    /// Where a verse of this system stands in the common numbering, which counts the deuterocanonical books as the
    /// system Synodal does and the others as KJV does. Nothing where the common numbering has no such verse, or has it
    /// in another book.
    std::optional<Place> toCommon(const ModuleBook& book, Place place) const;

private:
    std::string m_name;
    const void* m_system; ///< sword::VersificationMgr::System; the library keeps it until the program ends
};

/// The verses of a module that have a place in the common numbering.
std::vector<VersePair> versePairs(const std::vector<ModuleBook>& books, const CVersification& versification);

} // namespace Kedrin::ModTool
