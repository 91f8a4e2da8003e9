#include "check_module.h"

#include "check_books.h"
#include "check_diff.h"
#include "check_file.h"
#include "check_text.h"
#include "check_words.h"
#include "errors.h"
#include "folder_names.h"
#include "global_books.h"
#include "messages.h"
#include "module_format.h"
#include "text_reader.h"
#include "tolvo_bible/bible_info.h"

#include <algorithm>
#include <filesystem>
#include <map>

namespace Kedrin::ModTool {

namespace {

std::vector<std::uint32_t> numbersIn(std::string_view content)
{
    std::vector<std::uint32_t> all;
    ut::CNumberReader numbers(content);
    while (const auto number = numbers.nextUnsigned())
        all.push_back(*number);
    return all;
}

void checkGlobalStructure(const std::string& directory, CFindings& findings)
{
    const auto content =
        readForCheck(directory, globalStructureFileName, findings, CheckID::globalStructureMissing);
    if (!content)
        return;
    const std::vector<std::uint32_t> common = numbersIn(globalStructureFile());
    ut::CNumberReader numbers(*content);
    const bool isSame = std::all_of(common.begin(), common.end(),
                                    [&](std::uint32_t number) { return numbers.nextUnsigned() == number; });
    if (!isSame)
        findings.add(CheckID::globalStructureDiffers, globalStructureFileName);
}

void checkFullTitles(const std::vector<std::string>& modules, CFindings& findings)
{
    std::map<std::string, std::string> met; // title to name of the folder
    for (const std::string& folder : modules) {
        const std::string name = std::filesystem::path(folder).filename().string();
        const Tolvo::CBibleInfo info((folder + '/' + infoFileName).c_str(), folderTitle(folder).c_str());
        const auto known = met.emplace(info.fullTitle(), name);
        if (!known.second)
            findings.add(CheckID::modulesSameTitle, shownPath(known.first->second) + ", " + shownPath(name) +
                                                        ": " + shownBytes(info.fullTitle()));
    }
}

} // namespace

ModuleReport checkModule(const std::string& folder, std::size_t maxPositions)
{
    std::error_code ignored;
    if (!std::filesystem::is_directory(folder, ignored))
        throw CCheckError(message("%s: is not a folder", shownPath(folder)));
    ModuleReport report(folder, maxPositions);
    checkInfo(folder, report.findings);
    const CheckedShape shape = checkBooks(folder, report.findings);
    report.booksCount = shape.books.size();
    report.roundTrips = checkDiff(folder, shape, report.findings);
    const std::optional<CheckedText> text = checkText(folder, shape, report.findings);
    if (shape.hasStructure)
        report.versesCount = shape.totalVerses;
    if (text)
        report.emptyVerses = text->emptyVerses;
    report.wordsCount = checkWords(folder, shape, text ? &*text : nullptr, report.findings);
    return report;
}

bool isModule(const std::string& folder)
{
    return std::any_of(moduleFileNames.begin(), moduleFileNames.end(), [&](std::string_view name) {
        std::error_code ignored;
        return std::filesystem::exists(folder + '/' + std::string(name), ignored);
    });
}

CFindings checkDirectory(const std::string& directory, const std::vector<std::string>& modules,
                         std::size_t maxPositions)
{
    CFindings findings(maxPositions);
    checkGlobalStructure(directory, findings);
    checkFullTitles(modules, findings);
    return findings;
}

} // namespace Kedrin::ModTool
