#pragma once

#include "diff_command.h"
#include "info_command.h"
#include "search_command.h"
#include "show_command.h"
#include "words_command.h"

namespace Kedrin::ModTool {

/// The commands that only read modules: show, search, info, words and diff. They need nothing of the SWORD library,
/// whose loading takes longer than reading a verse.
class CQueryCommands
{
public:
    /// Adds the commands to the program's. The object outlives the parsing.
    explicit CQueryCommands(CLI::App& program);

    /// Whether a word of the command line names one of them.
    static bool isOne(std::string_view command);

    bool isChosen() const;

    /// What the parser cannot tell: "" or a sentence on what is wrong with the arguments.
    std::string usageError() const;

    /// Runs the command that was chosen. An error is a line on `err`.
    /// @returns a QueryExit
    int run(std::ostream& out, std::ostream& err) const;

private:
    int runChosen(std::ostream& out) const;

    CShowCommand m_show;
    CSearchCommand m_search;
    CInfoCommand m_info;
    CWordsCommand m_words;
    CDiffCommand m_diff;
};

} // namespace Kedrin::ModTool
