#include "query_commands.h"

#include <algorithm>

namespace Kedrin::ModTool {

CQueryCommands::CQueryCommands(CLI::App& program)
    : m_show(program),
      m_search(program),
      m_info(program),
      m_words(program),
      m_diff(program)
{}

bool CQueryCommands::isOne(std::string_view command)
{
    constexpr std::array<std::string_view, 5> names = {"show", "search", "info", "words", "diff"};
    return std::find(names.begin(), names.end(), command) != names.end();
}

} // namespace Kedrin::ModTool
