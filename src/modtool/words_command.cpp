#include "words_command.h"

#include "module_words.h"
#include "plain_text.h"
#include "search_text.h"
#include "ut_utils.h"

#include <CLI/CLI.hpp>

namespace Kedrin::ModTool {

namespace {

bool beginsWith(const std::string& word, const std::string& prefix)
{
    return ut::cyr_stricmp(word.substr(0, prefix.size()).c_str(), prefix.c_str()) == 0;
}

} // namespace

CWordsCommand::CWordsCommand(CLI::App& program)
    : m_command(program.add_subcommand("words", "List the words of a module"))
{
    m_command->add_option("MODULE", m_module, "The module's folder")->required();
    m_command->add_option("PREFIX", m_prefix, "Only words that begin so, in whatever case");
    m_command->add_flag("--counts", m_counts, "With the number of verses that hold the word");
}

bool CWordsCommand::isChosen() const { return m_command->parsed(); }

int CWordsCommand::run(std::ostream& out) const
{
    const CModuleWords words(m_module);
    const std::string prefix = searchText(m_prefix);
    bool found = false;
    for (unsigned int i = 0; i < words.list().count(); ++i) {
        const std::string word = words.list()[i];
        if (!beginsWith(word, prefix))
            continue;
        found = true;
        out << plainLine(word);
        if (m_counts)
            out << '\t' << words.versesOf(i).size();
        out << '\n';
    }
    return found ? queryDone : queryNothing;
}

} // namespace Kedrin::ModTool
