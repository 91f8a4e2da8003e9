#include "info_command.h"

#include "build_report.h"
#include "module_facts.h"
#include "query_json.h"

#include <CLI/CLI.hpp>

namespace Kedrin::ModTool {

namespace {

void writeLines(const ModuleFacts& facts, std::ostream& out)
{
    out << facts.fullTitle << "\nshort title: " << facts.shortTitle
        << "\nabbreviation: " << facts.abbreviatedTitle << "\nfolder: " << facts.folder << '\n';
    for (const std::string& line : facts.copyright)
        out << "copyright: " << line << '\n';
    out << counted(facts.books.size(), "book", "books") << ", "
        << counted(facts.chaptersCount, "chapter", "chapters") << ", "
        << counted(facts.versesCount, "verse", "verses") << " (" << facts.emptyVersesCount << " empty), "
        << counted(facts.wordsCount, "word", "words") << ", " << counted(facts.byteCount, "byte", "bytes")
        << '\n'
        << "numbering: " << counted(facts.movedCount, "verse has", "verses have")
        << " another number in the common numbering, " << facts.outsideCount << " none; "
        << counted(facts.keptCount, "verse keeps its place", "verses keep their place")
        << " on the way there and back\n";
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
        {"moved", facts.movedCount}, {"outside", facts.outsideCount}, {"kept", facts.keptCount}};
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

} // namespace

CInfoCommand::CInfoCommand(CLI::App& program)
    : m_command(program.add_subcommand("info", "Tell what a module says of itself and what it holds"))
{
    m_command->add_option("MODULE", m_module, "The module's folder")->required();
    m_command->add_flag("--json", m_json, "As JSON");
}

bool CInfoCommand::isChosen() const { return m_command->parsed(); }

int CInfoCommand::run(std::ostream& out) const
{
    const ModuleFacts facts = moduleFacts(m_module);
    if (m_json)
        writeJson(facts, out);
    else
        writeLines(facts, out);
    return queryDone;
}

} // namespace Kedrin::ModTool
