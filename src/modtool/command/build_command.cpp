#include "ascii.h"
#include "build_options.h"
#include "command.h"
#include "commands.h"

#include "all_sword.h"
#include "build.h"
#include "command_line.h"
#include "errors.h"
#include "exit_codes.h"
#include "messages.h"
#include "module_folder.h"
#include "program.h"
#include "progress.h"
#include "source_format.h"
#include "text_input.h"

#include <CLI/CLI.hpp>

#include <map>
#include <sstream>
#include <string>

namespace Kedrin::ModTool {

namespace {

constexpr const char* helpText = translatable(
    "The module is written to a separate folder and verified, and only then replaces the old one: a "
    "build that fails or\n"
    "is interrupted leaves the previous module untouched.\n"
    "\n"
    "Examples:\n"
    "  kedrin-module build my.txt modules/bibles/my --title 'My translation'\n"
    "  kedrin-module build sword:WEB modules/bibles/web --substitute\n"
    "  kedrin-module build --all-sword modules/bibles\n"
    "\n"
    "Exit codes:\n"
    "  0  done\n"
    "  1  the source was rejected, or something could not be read or written\n"
    "  2  invalid arguments\n"
    "  3  the report could not be written, or the part of the program with SWORD support is not installed");

/// `kedrin-module build SOURCE MODULE-FOLDER` and `kedrin-module build --all-sword DIR`.
class CBuildCommand final : public ICommand
{
public:
    /// Adds the command and its options to the program's. The object outlives the parsing.
    explicit CBuildCommand(CLI::App& program);

    bool isChosen() const override;
    std::string usageError() const override;
    int run(const CommandStreams& streams) const override;

private:
    /// @returns whether everything succeeded; a Bible of --all-sword that fails is reported on `err`
    bool build(std::ostream& report, std::ostream& err, CProgress& progress) const;
    void addReadingOptions();

    CLI::App* m_command;
    std::string m_source;
    std::string m_folder;
    std::string m_allSwordDirectory;
    std::string m_copyrightFile;
    ReadOptions m_readOptions;
    BuildOptions m_options;
    bool m_verbose = false;
    bool m_quiet = false;
};

} // namespace

CBuildCommand::CBuildCommand(CLI::App& program)
    : m_command(
          addCommand(program, "build", "Build a Kedrin module from a Bible text in another format", helpText))
{
    m_command->add_option(
        "SOURCE", m_source,
        tr("sword:NAME for an installed SWORD Bible; a file of verse lines, USFM, XML (Beblia, OpenSong, "
           "OSIS, Zefania) or plain lines; or a folder of USFM files or plain lines"));
    m_command->add_option("MODULE-FOLDER", m_folder,
                          tr("The module's folder, created or replaced as a "
                             "whole"));
    m_command
        ->add_option("--all-sword", m_allSwordDirectory,
                     tr("Build a module from every installed SWORD Bible, each in its own subfolder"))
        ->type_name("DIR");
    m_command->add_flag("--substitute", m_options.substitute,
                        tr("Replace characters that Windows-1251 lacks"));
    m_command->add_option("--title", m_options.fullTitle, tr("Full title"));
    m_command->add_option("--short", m_options.shortTitle, tr("Short title"));
    m_command->add_option("--abbr", m_options.abbreviatedTitle, tr("Abbreviated title"));
    m_command
        ->add_option("--versification", m_options.versification,
                     tr("Versification of the source, by its SWORD name"))
        ->type_name("NAME");
    addReadingOptions();
    m_command->add_flag("-v,--verbose", m_verbose, tr("Report where the source's letters and digits went"));
    m_command->add_flag("-q,--quiet", m_quiet, tr("No progress bar and no report"));
}

namespace {

/// Adds an option whose value is one of a fixed set of words.
/// @param words  as shown in the help
template <typename Value, typename Chosen>
void addChoice(CLI::App& command, const char* name, const char* words,
               const std::map<std::string, Value>& values, Chosen& chosen, const char* description)
{
    const auto choose = [&chosen, values, name, words](const std::string& word) {
        const auto found = values.find(word);
        if (found == values.end())
            throw CLI::ValidationError(name, message("\"%s\" is not one of %s", word, words));
        chosen = found->second;
    };
    command.add_option_function<std::string>(name, choose, description)->option_text(words);
}

} // namespace

void CBuildCommand::addReadingOptions()
{
    const std::map<std::string, SourceFormat> formats{{"beblia", SourceFormat::beblia},
                                                      {"opensong", SourceFormat::opensong},
                                                      {"osis", SourceFormat::osis},
                                                      {"usfm", SourceFormat::usfm},
                                                      {"zefania", SourceFormat::zefania},
                                                      {"plain-lines", SourceFormat::plainLines},
                                                      {"verse-lines", SourceFormat::verseLines}};
    const std::map<std::string, BookOrder> orders{{"source", BookOrder::source},
                                                  {"protestant", BookOrder::protestant},
                                                  {"orthodox", BookOrder::orthodox}};
    const std::map<std::string, bool> titles{{"bg", false}, {"source", true}};
    addChoice(*m_command, "--from", "beblia|opensong|osis|usfm|zefania|plain-lines|verse-lines", formats,
              m_readOptions.format, tr("Format of the source, if it is detected wrongly"));
    m_command
        ->add_option("--encoding", m_readOptions.encoding,
                     tr("Encoding of the source, if it does not "
                        "state one"))
        ->type_name("NAME");
    m_command->add_option("--book", m_readOptions.book, tr("Book of a plain text that does not name its own"))
        ->type_name("NAME");
    addChoice(*m_command, "--book-order", "source|protestant|orthodox", orders, m_readOptions.order,
              tr("Order of the books"));
    addChoice(*m_command, "--titles", "bg|source", titles, m_options.sourceTitles,
              tr("Titles of the books: Bulgarian, or the source's own"));
    m_command
        ->add_option("--copyright", m_copyrightFile,
                     tr("Text file with the copyright notice, one "
                        "paragraph per line"))
        ->type_name("FILE");
}

namespace {

std::vector<std::string> paragraphsOf(const std::string& fileName)
{
    std::istringstream text(readText(fileName, ""));
    std::vector<std::string> paragraphs;
    for (std::string line; std::getline(text, line);)
        if (!isBlank(line))
            paragraphs.push_back(line);
    return paragraphs;
}

} // namespace

bool CBuildCommand::isChosen() const { return m_command->parsed(); }

std::string CBuildCommand::usageError() const
{
    if (m_allSwordDirectory.empty())
        return m_source.empty() || m_folder.empty()
                   ? tr("build requires SOURCE and MODULE-FOLDER, or --all-sword DIR")
                   : "";
    const bool describesOne =
        !m_source.empty() || m_verbose || m_options.substitute || !m_options.fullTitle.empty() ||
        !m_options.shortTitle.empty() || !m_options.abbreviatedTitle.empty() ||
        !m_options.versification.empty() || m_options.sourceTitles || !m_copyrightFile.empty() ||
        !m_readOptions.encoding.empty() || !m_readOptions.book.empty() ||
        m_readOptions.format != SourceFormat::detected || m_readOptions.order != BookOrder::source;
    return describesOne ? tr("--all-sword can be combined only with -q") : "";
}

int CBuildCommand::run(const CommandStreams& streams) const
{
    CProgress progress(m_quiet ? nullptr : streams.terminal);
    try {
        std::ostringstream nowhere;
        return build(m_quiet ? nowhere : streams.out, streams.err, progress) ? exitDone : exitFailed;
    } catch (const std::exception& ex) {
        progress.clear();
        sayError(streams.err, ex.what());
        return exitFailed;
    }
}

bool CBuildCommand::build(std::ostream& report, std::ostream& err, CProgress& progress) const
{
    if (!m_allSwordDirectory.empty())
        return buildAllSword(m_allSwordDirectory, report, err, progress);
    for (const std::string& fileName : {m_source, m_copyrightFile})
        if (!fileName.empty())
            checkOutside(fileName, m_folder);
    BuildOptions options = m_options;
    if (!m_copyrightFile.empty())
        options.copyright = paragraphsOf(m_copyrightFile);
    const BuildReport result =
        buildModule(readSource(m_source, m_readOptions, progress), m_folder, options, "", progress);
    progress.clear();
    report << result.text();
    if (m_verbose)
        report << result.letterAccount();
    return true;
}

std::unique_ptr<ICommand> makeBuildCommand(CLI::App& program)
{
    return std::make_unique<CBuildCommand>(program);
}

} // namespace Kedrin::ModTool
