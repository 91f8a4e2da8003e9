#pragma once

#include "module_search.h"
#include "query_command.h"

#include <string>
#include <vector>

namespace Kedrin::ModTool {

/// `kedrin-module search MODULE TEXT [--whole-word | --part] [--case] [--count] [--json]`: the verses that hold a text.
class CSearchCommand final : public CQueryCommand
{
public:
    explicit CSearchCommand(CLI::App& program);

    std::string usageError() const override;

private:
    /// @returns a QueryExit: done, or nothing when no verse holds the text
    /// @throws CModuleError  the module cannot be read
    /// @throws CNotFound     what searchText() throws
    int answer(std::ostream& out) const override;

    SearchMode mode() const;
    void writeLines(const CModuleReader& module, const std::vector<Tolvo::CRef>& hits,
                    std::ostream& out) const;
    void writeJson(const CModuleReader& module, const std::vector<Tolvo::CRef>& hits,
                   std::ostream& out) const;

    std::string m_module;
    std::vector<std::string> m_text; ///< as typed, word by word
    bool m_wholeWord = false;
    bool m_part = false;
    bool m_case = false;
    bool m_count = false;
    bool m_json = false;
};

} // namespace Kedrin::ModTool
