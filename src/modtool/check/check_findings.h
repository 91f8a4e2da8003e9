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
    std::vector<std::string> positions; ///< UTF-8, the first ones
};

/// What all checks found in one module or directory. Memory is bounded: only the first positions of each
/// check are kept.
class CFindings
{
public:
    /// @param maxPositions  how many positions of each check to keep
    explicit CFindings(std::size_t maxPositions) : m_maxPositions(maxPositions) {}

    /// Counts one defect. `makePosition()`, which returns its position as text, is called only if the
    /// position is kept.
    template <typename MakePosition>
    void addLazily(CheckID check, MakePosition&& makePosition)
    {
        Finding& finding = m_findings[check];
        ++finding.count;
        if (finding.positions.size() < m_maxPositions)
            finding.positions.push_back(std::forward<MakePosition>(makePosition)());
    }

    void add(CheckID check, std::string_view position)
    {
        addLazily(check, [&] { return std::string(position); });
    }

    bool has(CheckID check) const { return m_findings.contains(check); }

    /// In the order of the checks.
    const std::map<CheckID, Finding>& all() const { return m_findings; }

    /// Forgets what other checks have found than those for which `isWanted(check)` is true.
    template <typename IsWanted>
    void keepOnly(IsWanted&& isWanted)
    {
        std::erase_if(m_findings, [&](const auto& finding) { return !isWanted(finding.first); });
    }

    /// How many defects of this severity there are.
    std::uint64_t count(Severity severity) const;

private:
    std::size_t m_maxPositions;
    std::map<CheckID, Finding> m_findings;
};

/// Bytes of a module, Windows-1251, as UTF-8 that is safe to print: control characters as \x1B, at most 40 bytes, then
/// "...".
std::string shownBytes(std::string_view bytes);

/// A path safe to print: control characters as \x1B.
std::string shownPath(std::string_view path);

} // namespace Kedrin::ModTool
