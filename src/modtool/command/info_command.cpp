#include "commands.h"

#include "build_report.h"
#include "command.h"
#include "command_options.h"
#include "exit_codes.h"
#include "installed_modules.h"
#include "language.h"
#include "messages.h"
#include "module_facts.h"
#include "query_json.h"

#include <string>

namespace Kedrin::ModTool {

namespace {

constexpr const char* helpText = translatable("Examples:\n"
                                              "  kedrin-module info modules/bibles/my\n"
                                              "  kedrin-module info --empty-verses modules/bibles/my\n"
                                              "\n"
                                              "Exit codes:\n"
                                              "  0  done\n"
                                              "  2  invalid arguments\n"
                                              "  3  the module cannot be read");

void writeLines(const ModuleFacts& facts, std::ostream& out)
{
    out << facts.fullTitle << '\n'
        << message("short title: %s", facts.shortTitle) << '\n'
        << message("abbreviation: %s", facts.abbreviatedTitle) << '\n'
        << message("folder: %s", printableName(facts.folder)) << '\n';
    for (const std::string& line : facts.copyright)
        out << message("copyright: %s", line) << '\n';
    out << message("%s, %s, %s (%s empty), %s, %s", counted(facts.books.size(), "book", "books"),
                   counted(facts.chaptersCount, "chapter", "chapters"),
                   counted(facts.versesCount, "verse", "verses"), facts.emptyVersesCount,
                   counted(facts.wordsCount, "word", "words"), counted(facts.byteCount, "byte", "bytes"))
        << '\n'
        << message("numbering: %s, %s have none; %s",
                   counted(facts.movedCount, "verse has a different number in the global numbering",
                           "verses have a different number in the global numbering"),
                   facts.outsideCount,
                   counted(facts.roundTripCount, "verse maps correctly both ways",
                           "verses map correctly both ways"))
        << '\n';
    for (const BookFacts& book : facts.books)
        out << book.osis << '\t' << book.abbreviation << '\t' << book.title << '\t' << book.chaptersCount
            << '\t' << book.versesCount << '\n';
}

void writeJson(const ModuleFacts& facts, std::ostream& out)
{
    Json json;
    json["folder"] = facts.folder;
    json["titles"] = {
        {"full", facts.fullTitle}, {"short", facts.shortTitle}, {"abbreviated", facts.abbreviatedTitle}};
    json["copyright"] = facts.copyright;
    json["chapters"] = facts.chaptersCount;
    json["verses"] = facts.versesCount;
    json["emptyVerses"] = facts.emptyVersesCount;
    json["words"] = facts.wordsCount;
    json["numbering"] = {
        {"moved", facts.movedCount}, {"outside", facts.outsideCount}, {"kept", facts.roundTripCount}};
    json["bytes"] = facts.byteCount;
    for (const auto& [name, bytes] : facts.files)
        json["files"][name] = bytes;
    json["books"] = Json::array();
    for (const BookFacts& book : facts.books)
        json["books"].push_back({{"osis", book.osis},
                                 {"title", book.title},
                                 {"abbreviation", book.abbreviation},
                                 {"chapters", book.chaptersCount},
                                 {"verses", book.versesCount}});
    writeJsonText(json, out);
}

void writeEmptyVerses(const CModuleReader& module, std::ostream& out)
{
    const std::vector<Tolvo::CRef> references = module.references();
    module.forEachVerse(0, module.structure().totalVersesCount(),
                        [&](unsigned int verseNum, std::string_view stored) {
                            if (stored.empty())
                                out << module.label(references[verseNum]) << '\n';
                        });
}

/// `kedrin-module info MODULE [--json | --empty-verses]`: a module's metadata and contents.
class CInfoCommand final : public CQueryCommand
{
public:
    explicit CInfoCommand(CLI::App& program);

private:
    int answer(std::ostream& out) const override;

    std::string m_module;
    bool m_json = false;
    bool m_emptyVerses = false;
};

} // namespace

CInfoCommand::CInfoCommand(CLI::App& program)
    : CQueryCommand(addCommand(program, "info", "Show a module's metadata and contents", helpText))
{
    addOption(*m_command, "MODULE", m_module, tr("The module's folder, or its name as list shows it"))
        .require();
    const COption json = addFlag(*m_command, "--json", m_json, tr("Print the answer as JSON"));
    addFlag(*m_command, "--empty-verses", m_emptyVerses, tr("List only the verses without text"))
        .excludes(json);
}

int CInfoCommand::answer(std::ostream& out) const
{
    if (m_json)
        forceEnglish();
    if (m_emptyVerses) {
        writeEmptyVerses(CModuleReader(moduleFolder(m_module)), out);
        return exitDone;
    }
    const ModuleFacts facts = moduleFacts(moduleFolder(m_module));
    if (m_json)
        writeJson(facts, out);
    else
        writeLines(facts, out);
    return exitDone;
}

std::unique_ptr<ICommand> makeInfoCommand(CLI::App& program)
{
    return std::make_unique<CInfoCommand>(program);
}

} // namespace Kedrin::ModTool
