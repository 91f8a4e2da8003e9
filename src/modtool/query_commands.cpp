#include "query_commands.h"

#include "module_error.h"

#include <algorithm>
#include <array>

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

bool CQueryCommands::isChosen() const
{
    return m_show.isChosen() || m_search.isChosen() || m_info.isChosen() || m_words.isChosen() ||
           m_diff.isChosen();
}

std::string CQueryCommands::usageError() const
{
    return m_search.isChosen() ? m_search.usageError() : std::string();
}

int CQueryCommands::run(std::ostream& out, std::ostream& err) const
{
    try {
        const int result = runChosen(out);
        out.flush();
        if (!out)
            throw CModuleError("the output cannot be written");
        return result;
    } catch (const CNotFound& ex) {
        err << "kedrin-module: " << ex.what() << '\n';
        return queryNothing;
    } catch (const std::exception& ex) {
        err << "kedrin-module: " << ex.what() << '\n';
        return queryTrouble;
    }
}

int CQueryCommands::runChosen(std::ostream& out) const
{
    if (m_show.isChosen())
        return m_show.run(out);
    if (m_search.isChosen())
        return m_search.run(out);
    if (m_info.isChosen())
        return m_info.run(out);
    if (m_words.isChosen())
        return m_words.run(out);
    return m_diff.run(out);
}

} // namespace Kedrin::ModTool
