#pragma once

#include "module_data.h"
#include "versification_tables.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace Kedrin::ModTool {

/// One of the SWORD library's versification systems, as it was when the program was built, and its mapping to the global
/// numbering. The library is not needed.
class CVersification
{
public:
    /// @throws CBuildError  "unknown versification \"%s\" (known: %s)"
    explicit CVersification(const std::string& name);

    /// The names of all systems, KJV first, the others sorted.
    static std::vector<std::string> names();

    /// The system that agrees with the books in most chapters; of equals, the first.
    static CVersification bestFor(const std::vector<ModuleBook>& books);

    std::string name() const { return m_system->name; }

    /// In how many chapters the system has exactly as many verses as the books.
    unsigned int agreement(const std::vector<ModuleBook>& books) const;

    /// The position of a verse of this system in the global numbering, which follows Synodal for the
    /// deuterocanonical books and KJV for the others. Nothing if the global numbering lacks the verse or has
    /// it in another book.
    std::optional<ChapterVerse> toGlobal(const ModuleBook& book, ChapterVerse position) const;

private:
    explicit CVersification(const NumberedSystem& system) : m_system(&system) {}

    /// Null for a book that the system lacks.
    const NumberedBook* findBook(unsigned int globalID) const;

    const NumberedSystem* m_system; ///< constant data
};

/// The verses of a module that have a position in the global numbering.
std::vector<VersePair> versePairs(const std::vector<ModuleBook>& books, const CVersification& versification);

} // namespace Kedrin::ModTool
