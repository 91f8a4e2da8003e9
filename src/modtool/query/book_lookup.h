#pragma once

#include "module_reader.h"

#include <string>
#include <vector>

namespace Kedrin::ModTool {

/// Finds a book of a module by any name a user may type. Case, dots and spaces do not matter. The first rule
/// with a match decides:
///
///     1. a title of the module: full, short or abbreviated
///     2. a general name of a book (see globalBookNames())
///     3. a prefix of one of the module's titles
///     4. a prefix of a general name of a book that the module has
class CBookLookup
{
public:
    /// The module must outlive this object.
    explicit CBookLookup(const CModuleReader& module);

    /// @returns the book's local number
    /// @throws CNotFound
    ///     "\"%s\" is ambiguous: %s": several books, by their titles in the module
    ///     "the module has no book \"%s\" (%s)": the name as asked for, and the book's OSIS id
    ///     "\"%s\" is not a book of the module" and, if similar names exist, " (did you mean %s?)"
    unsigned int find(const std::string& name) const;

private:
    struct Name
    {
        std::string key;
        unsigned int globalID;
        bool ofModule; ///< a title of the module
    };

    template <typename Accept>
    std::vector<unsigned int> booksWith(Accept&& accept) const;
    std::vector<unsigned int> booksLike(const std::string& key) const;
    std::string listed(const std::vector<unsigned int>& globalIDs) const;

    const CModuleReader& m_module;
    std::vector<Name> m_names;
};

} // namespace Kedrin::ModTool
