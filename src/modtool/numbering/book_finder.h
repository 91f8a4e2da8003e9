#pragma once

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace Kedrin::ModTool {

/// Finds books by names that were written by hand, quickly enough for a name in every line of a file. Case, points and
/// blanks do not matter.
class CBookFinder
{
public:
    CBookFinder();

    /// The OSIS id of the only book that is called so: by an OSIS id or a name of the global numbering (see
    /// globalBookNames()), or by a USFM code or an OSIS id of a book beside it. "" where there is none or
    /// several.
    std::string find(std::string_view utf8) const;

    /// The same for a name that may be cut short, to three letters at least.
    std::string findShort(std::string_view utf8) const;

    /// The OSIS id of a book with a name that differs by a letter, or by two where it is longer than four letters; ""
    /// where there is none.
    std::string nearest(std::string_view utf8) const;

private:
    struct Name
    {
        std::string key;
        std::string osis;
    };

    void add(const std::string& name, std::string_view osis);

    std::vector<Name> m_names;                            ///< sorted by key
    std::unordered_map<std::string, std::string> m_exact; ///< by key; "" where several books are called so
};

/// The only one of the program.
const CBookFinder& bookFinder();

} // namespace Kedrin::ModTool
