#include "source_options.h"

#include "ascii.h"
#include "command_options.h"
#include "messages.h"
#include "text_input.h"

#include <map>
#include <sstream>
#include <vector>

namespace Kedrin::ModTool {

namespace {

/// Adds an option whose value is one of a fixed set of words.
/// @param words  as shown in the help
template <typename Value, typename Chosen>
void addChoice(CLI::App& command, const char* name, const char* words,
               const std::map<std::string, Value>& values, Chosen& chosen, const char* description)
{
    const auto choose = [&chosen, values, words](const std::string& word) -> std::string {
        const auto found = values.find(word);
        if (found == values.end())
            return message("\"%s\" is not one of %s", word, words);
        chosen = found->second;
        return "";
    };
    addOption(command, name, choose, description).text(words);
}

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

void CSourceOptions::addTo(CLI::App& command)
{
    addOption(command, "--title", m_building.fullTitle, tr("Full title"));
    addOption(command, "--short", m_building.shortTitle, tr("Short title"));
    addOption(command, "--abbr", m_building.abbreviatedTitle, tr("Abbreviated title"));
    addOption(command, "--versification", m_building.versification,
              tr("Versification of the source, by its SWORD name"))
        .typeName("NAME");
    addFlag(command, "--skip-unknown", m_reading.skipUnknownBooks,
            tr("Leave out books that are not known, instead of rejecting the text"));
    addReadingOptions(command);
}

void CSourceOptions::addReadingOptions(CLI::App& command)
{
    const std::map<std::string, SourceFormat> formats{{"beblia", SourceFormat::beblia},
                                                      {"ces", SourceFormat::ces},
                                                      {"json", SourceFormat::json},
                                                      {"opensong", SourceFormat::opensong},
                                                      {"osis", SourceFormat::osis},
                                                      {"sqlite", SourceFormat::sqlite},
                                                      {"usfm", SourceFormat::usfm},
                                                      {"usfx", SourceFormat::usfx},
                                                      {"usx", SourceFormat::usx},
                                                      {"yaml", SourceFormat::yaml},
                                                      {"zefania", SourceFormat::zefania},
                                                      {"plain-lines", SourceFormat::plainLines},
                                                      {"verse-lines", SourceFormat::verseLines}};
    const std::map<std::string, BookOrder> orders{{"source", BookOrder::source},
                                                  {"protestant", BookOrder::protestant},
                                                  {"orthodox", BookOrder::orthodox}};
    const std::map<std::string, bool> titles{{"bg", false}, {"source", true}};
    addChoice(command, "--from",
              "beblia|ces|json|opensong|osis|sqlite|usfm|usfx|usx|yaml|zefania|plain-lines|verse-lines",
              formats, m_reading.format, tr("Format of the source, if it is detected wrongly"));
    addOption(command, "--encoding", m_reading.encoding,
              tr("Encoding of the source, if it does not "
                 "state one"))
        .typeName("NAME");
    addOption(command, "--book", m_reading.book, tr("Book of a plain text that does not name its own"))
        .typeName("NAME");
    addChoice(command, "--book-order", "source|protestant|orthodox", orders, m_reading.order,
              tr("Order of the books"));
    addChoice(command, "--titles", "bg|source", titles, m_building.sourceTitles,
              tr("Titles of the books: Bulgarian, or the source's own"));
    addOption(command, "--copyright", m_copyrightFile,
              tr("Text file with the copyright notice, one "
                 "paragraph per line"))
        .typeName("FILE");
}

bool CSourceOptions::areGiven() const
{
    return m_reading.skipUnknownBooks || !m_building.fullTitle.empty() || !m_building.shortTitle.empty() ||
           !m_building.abbreviatedTitle.empty() || !m_building.versification.empty() ||
           m_building.sourceTitles || !m_copyrightFile.empty() || !m_reading.encoding.empty() ||
           !m_reading.book.empty() || m_reading.format != SourceFormat::detected ||
           m_reading.order != BookOrder::source;
}

BuildOptions CSourceOptions::building() const
{
    BuildOptions options = m_building;
    if (!m_copyrightFile.empty())
        options.copyright = paragraphsOf(m_copyrightFile);
    return options;
}

} // namespace Kedrin::ModTool
