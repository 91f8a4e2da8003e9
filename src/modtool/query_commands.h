#pragma once

#include "diff_command.h"
#include "info_command.h"
#include "search_command.h"
#include "show_command.h"
#include "words_command.h"

#include <array>

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

    std::array<const ICommand*, 5> all() const { return {&m_show, &m_search, &m_info, &m_words, &m_diff}; }

private:
    CShowCommand m_show;
    CSearchCommand m_search;
    CInfoCommand m_info;
    CWordsCommand m_words;
    CDiffCommand m_diff;
};

} // namespace Kedrin::ModTool
