#pragma once

#include "check_table.h"

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace Kedrin::ModTool {

/// What one check found.
struct Finding
{
    std::uint64_t count = 0;
    std::vector<std::string> places; ///< UTF-8, the first ones
};

/// What all checks found in one module or directory. Memory stays small however much is wrong: only the first places
/// of each check are kept.
class CFindings
{
public:
    /// @param maxPlaces  how many places of each check to keep
    explicit CFindings(std::size_t maxPlaces) : m_maxPlaces(maxPlaces) {}

    /// Counts one defect. `makePlace()`, which gives the text of its place, is called only if that is kept.
    template <typename MakePlace>
    void addLazily(CheckID check, MakePlace&& makePlace)
    {
        Finding& finding = m_findings[check];
        ++finding.count;
        if (finding.places.size() < m_maxPlaces)
            finding.places.push_back(std::forward<MakePlace>(makePlace)());
    }

    void add(CheckID check, std::string_view place)
    {
        addLazily(check, [&] { return std::string(place); });
    }

    bool has(CheckID check) const { return m_findings.contains(check); }

    /// In the order of the checks.
    const std::map<CheckID, Finding>& all() const { return m_findings; }

    /// How many defects of this severity there are.
    std::uint64_t count(Severity severity) const;

private:
    std::size_t m_maxPlaces;
    std::map<CheckID, Finding> m_findings;
};

/// Bytes of a module, Windows-1251, as UTF-8 that is safe to print: control characters as \x1B, at most 40 bytes, then
/// "...".
std::string shownBytes(std::string_view bytes);

/// A path safe to print: control characters as \x1B.
std::string shownPath(std::string_view path);

} // namespace Kedrin::ModTool
