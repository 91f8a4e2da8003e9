#include "module_state.h"

#include "check_report.h"
#include "errors.h"
#include "messages.h"
#include "module_format.h"
#include "shown_text.h"
#include "stored_markup.h"
#include "tolvo_bible/bible_info.h"

namespace Kedrin::Add {

using namespace ModTool;

namespace {

constexpr std::size_t maxPositions = 5; ///< of each kind of defect in a report

} // namespace

QString titleOf(const InstalledModule& module)
{
    const Tolvo::CBibleInfo info((module.folder + '/' + infoFileName).c_str(), module.name.c_str());
    return fromUtf8(plainLine(info.fullTitle()));
}

ModuleState stateOf(const InstalledModule& module)
{
    try {
        CheckReport report;
        report.modules.push_back(checkModule(module.folder, maxPositions));
        const std::uint64_t defects = report.count(Severity::error);
        return {defects == 0 ? translated("sound") : fromUtf8(counted(defects, "defect", "defects")),
                fromUtf8(report.text())};
    } catch (const CCheckError& error) {
        return {translated("cannot be read"), messageOf(error)};
    }
}

} // namespace Kedrin::Add
