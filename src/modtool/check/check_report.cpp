#include "check_report.h"

#include "messages.h"
#include "text_columns.h"

#include <nlohmann/json.hpp>

#include <array>

namespace Kedrin::ModTool {

namespace {

using Json = nlohmann::ordered_json;

constexpr std::array severities = {Severity::error, Severity::warning, Severity::note};

std::string countedFindings(std::uint64_t count, Severity severity)
{
    return severity == Severity::error     ? counted(count, "error", "errors")
           : severity == Severity::warning ? counted(count, "warning", "warnings")
                                           : counted(count, "note", "notes");
}

/// "1 error, 2 warnings"; `sound` in front, or alone, where there is no error.
template <typename Counts>
std::string verdict(const Counts& counts, const char* sound)
{
    std::string text = counts.count(Severity::error) == 0 ? sound : "";
    for (const Severity severity : severities)
        if (const std::uint64_t count = counts.count(severity); count != 0)
            text += (text.empty() ? "" : ", ") + countedFindings(count, severity);
    return text;
}

std::string findingsText(const CFindings& findings)
{
    std::string text;
    for (const auto& [check, finding] : findings.all()) {
        const Check& facts = checkOf(check);
        text += "  " + std::string(tr(severityName(facts.severity))) + ' ' + std::string(facts.id) + " (" +
                std::to_string(finding.count) + "): " + tr(facts.advice) + '\n';
        for (const std::string& position : finding.positions)
            text += "    " + position + '\n';
        if (finding.count > finding.positions.size())
            text += message("    and %s more", finding.count - finding.positions.size()) + '\n';
    }
    return text;
}

std::string figuresText(const ModuleReport& module)
{
    std::string text = counted(module.booksCount, "book", "books");
    if (module.versesCount)
        text += ", " + counted(*module.versesCount, "verse", "verses");
    if (module.emptyVerses && *module.emptyVerses != 0)
        text += message(" (%s empty)", *module.emptyVerses);
    if (module.roundTrips)
        text += message(", %s map both ways", *module.roundTrips);
    if (module.wordsCount)
        text += ", " + counted(*module.wordsCount, "word", "words");
    return text;
}

Json findingsJson(const CFindings& findings)
{
    Json list = Json::array();
    for (const auto& [check, finding] : findings.all()) {
        const Check& facts = checkOf(check);
        list.push_back({{"check", facts.id},
                        {"severity", severityName(facts.severity)},
                        {"count", finding.count},
                        {"advice", facts.advice},
                        {"places", finding.positions}});
    }
    return list;
}

Json moduleJson(const ModuleReport& module)
{
    const auto orNull = [](const std::optional<std::uint64_t>& figure) {
        return figure ? Json(*figure) : Json();
    };
    return {{"folder", module.folder},
            {"sound", module.findings.count(Severity::error) == 0},
            {"books", module.booksCount},
            {"verses", orNull(module.versesCount)},
            {"emptyVerses", orNull(module.emptyVerses)},
            {"keptPlaces", orNull(module.roundTrips)},
            {"words", orNull(module.wordsCount)},
            {"findings", findingsJson(module.findings)}};
}

} // namespace

std::uint64_t CheckReport::count(Severity severity) const
{
    std::uint64_t sum = directory ? directory->findings.count(severity) : 0;
    for (const ModuleReport& module : modules)
        sum += module.findings.count(severity);
    return sum;
}

void CheckReport::keepOnly(const std::function<bool(CheckID)>& isWanted)
{
    if (directory)
        directory->findings.keepOnly(isWanted);
    for (ModuleReport& module : modules)
        module.findings.keepOnly(isWanted);
}

std::string CheckReport::text() const
{
    std::string text;
    if (directory)
        text += shownPath(directory->folder) + ": " + verdict(directory->findings, tr("no defects")) + '\n' +
                findingsText(directory->findings);
    for (const ModuleReport& module : modules)
        text += shownPath(module.folder) + ": " + verdict(module.findings, tr("sound")) + "; " +
                figuresText(module) + '\n' + findingsText(module.findings);
    if (directory)
        text += counted(modules.size(), "module", "modules") + ": " +
                verdict(*this, modules.size() == 1 ? tr("sound") : tr("all sound")) + '\n';
    return text;
}

std::string CheckReport::json() const
{
    Json report;
    report["directory"] =
        directory ? Json({{"folder", directory->folder}, {"findings", findingsJson(directory->findings)}})
                  : Json();
    report["modules"] = Json::array();
    for (const ModuleReport& module : modules)
        report["modules"].push_back(moduleJson(module));
    report["unchecked"] = unchecked;
    for (const Severity severity : severities)
        report[std::string(severityName(severity)) + 's'] = count(severity);
    report["sound"] = count(Severity::error) == 0 && unchecked.empty();
    return report.dump(2, ' ', false, Json::error_handler_t::replace) + '\n';
}

std::string listOfChecks()
{
    std::size_t columns = 0;
    for (const Severity severity : severities)
        columns = std::max(columns, charactersIn(tr(severityName(severity))));
    std::string text;
    for (const Check& check : checkTable())
        text += padded(std::string(check.id), 25) + ' ' + padded(tr(severityName(check.severity)), columns) +
                "  " + tr(check.advice) + '\n';
    return text;
}

} // namespace Kedrin::ModTool
