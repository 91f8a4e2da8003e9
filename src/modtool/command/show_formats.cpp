#include "show_formats.h"

#include "query_json.h"
#include "stored_markup.h"

#include <string>
#include <string_view>

namespace Kedrin::ModTool {

namespace {

std::string titleOf(const CModuleReader& module) { return plainLine(module.info().fullTitle()); }

/// A text in which Markdown finds nothing but text.
std::string markdownText(std::string_view utf8)
{
    constexpr std::string_view special = "\\`*_[]<>|#~";
    std::string escaped;
    for (const char character : utf8) {
        if (special.find(character) != std::string_view::npos)
            escaped += '\\';
        escaped += character;
        if (character == '&') // not the beginning of a reference
            escaped += "amp;";
    }
    return escaped;
}

std::string htmlText(std::string_view utf8)
{
    std::string escaped;
    for (const char character : utf8)
        switch (character) {
        case '<':
            escaped += "&lt;";
            break;
        case '>':
            escaped += "&gt;";
            break;
        case '&':
            escaped += "&amp;";
            break;
        default:
            escaped += character;
        }
    return escaped;
}

std::string markdownVerse(const CModuleReader& module, const Tolvo::CRef& verse)
{
    return "**" + markdownText(module.label(verse)) + "** " + markdownText(module.text(verse));
}

std::string htmlVerse(const CModuleReader& module, const Tolvo::CRef& verse)
{
    return "<b>" + htmlText(module.label(verse)) + "</b> " + htmlText(module.text(verse));
}

} // namespace

void writeMarkdown(const ShownVerses& shown, std::ostream& out)
{
    const bool isTable = shown.modules.size() > 1;
    if (!isTable)
        out << "# " << markdownText(titleOf(*shown.modules.front())) << '\n';
    else {
        for (const CModuleReader* module : shown.modules)
            out << "| " << markdownText(titleOf(*module)) << ' ';
        out << "|\n";
        for (std::size_t i = 0; i < shown.modules.size(); ++i)
            out << "|---";
        out << "|\n";
    }
    for (const auto& row : shown.rows) {
        for (std::size_t i = 0; i < row.size(); ++i)
            out << (isTable ? "| " : "\n") << (row[i] ? markdownVerse(*shown.modules[i], *row[i]) : "")
                << (isTable ? " " : "");
        out << (isTable ? "|\n" : "\n");
    }
}

void writeHtml(const ShownVerses& shown, std::ostream& out)
{
    const bool isTable = shown.modules.size() > 1;
    const std::string title = htmlText(titleOf(*shown.modules.front()));
    out << "<!DOCTYPE html>\n<html>\n<head>\n<meta charset=\"utf-8\">\n<title>" << title
        << "</title>\n</head>\n<body>\n";
    if (!isTable)
        out << "<h1>" << title << "</h1>\n";
    else {
        out << "<table>\n<tr>";
        for (const CModuleReader* module : shown.modules)
            out << "<th>" << htmlText(titleOf(*module)) << "</th>";
        out << "</tr>\n";
    }
    for (const auto& row : shown.rows) {
        out << (isTable ? "<tr>" : "");
        for (std::size_t i = 0; i < row.size(); ++i)
            out << (isTable ? "<td>" : "<p>") << (row[i] ? htmlVerse(*shown.modules[i], *row[i]) : "")
                << (isTable ? "</td>" : "</p>");
        out << (isTable ? "</tr>\n" : "\n");
    }
    out << (isTable ? "</table>\n" : "") << "</body>\n</html>\n";
}

void writeJson(const ShownVerses& shown, std::ostream& out)
{
    Json answer;
    answer["modules"] = Json::array();
    for (const CModuleReader* module : shown.modules)
        answer["modules"].push_back({{"folder", module->folder()}, {"title", titleOf(*module)}});
    answer["rows"] = Json::array();
    for (const auto& row : shown.rows) {
        Json cells = Json::array();
        for (std::size_t i = 0; i < row.size(); ++i)
            cells.push_back(row[i] ? verseJson(*shown.modules[i], *row[i]) : Json());
        answer["rows"].push_back(std::move(cells));
    }
    writeJsonText(answer, out);
}

} // namespace Kedrin::ModTool
