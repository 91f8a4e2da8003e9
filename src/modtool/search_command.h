#pragma once

#include "module_search.h"

#include <ostream>
#include <string>
#include <vector>

namespace CLI {
class App;
}

namespace Kedrin::ModTool {

/// `kedrin-module search MODULE TEXT [--whole-word | --part] [--case] [--count] [--json]`: the verses that hold a text.
class CSearchCommand
{
public:
    explicit CSearchCommand(CLI::App& program);

    bool isChosen() const;

    /// What the parser cannot tell: "" or a sentence on what is wrong with the arguments.
    std::string usageError() const;

    /// @returns a QueryExit: done, or nothing when no verse holds the text
    /// @throws CModuleError  the module cannot be read
    /// @throws CNotFound     what searchText() throws
    int run(std::ostream& out) const;

private:
    SearchMode mode() const;
    void writeLines(const CModuleReader& module, const std::vector<Tolvo::CRef>& hits,
                    std::ostream& out) const;
    void writeJson(const CModuleReader& module, const std::vector<Tolvo::CRef>& hits,
                   std::ostream& out) const;

    CLI::App* m_command;
    std::string m_module;
    std::vector<std::string> m_text; ///< as typed, word by word
    bool m_wholeWord = false;
    bool m_part = false;
    bool m_case = false;
    bool m_count = false;
    bool m_json = false;
};

} // namespace Kedrin::ModTool
