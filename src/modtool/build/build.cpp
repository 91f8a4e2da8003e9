#include "build.h"

#include "durable_file.h"
#include "global_books.h"
#include "messages.h"
#include "module_files.h"
#include "module_folder.h"
#include "module_format.h"
#include "prepare.h"
#include "read_source.h"
#include "verify_written.h"

namespace Kedrin::ModTool {

namespace {

constexpr std::string_view swordPrefix = "sword:";

void writeWithPoints(CModuleFolder& folder, const char* name, const char* pointsName,
                     const FileWithPoints& files)
{
    folder.write(name, files.content);
    folder.write(pointsName, files.points);
}

void writeFiles(CModuleFolder& folder, const ModuleData& module)
{
    folder.write(titlesFileName, titlesFile(module));
    folder.write(structureFileName, structureFile(module));
    folder.write(diffFileName, diffFile(module));
    writeWithPoints(folder, textFileName, textPointsFileName, textFiles(module));
    writeWithPoints(folder, wordListFileName, wordPointsFileName, wordListFiles(module));
    writeWithPoints(folder, concordanceFileName, concordancePointsFileName, concordanceFiles(module));
    folder.write(infoFileName, infoFile(module));
}

} // namespace

SourceBible readSource(const std::string& source, const ReadOptions& options, const ISword& sword,
                       IProgress& progress)
{
    if (!source.starts_with(swordPrefix))
        return readSourceFile(source, options);
    const std::unique_ptr<ISwordTexts> texts = sword.installedTexts();
    const std::string name = texts->resolve(source.substr(swordPrefix.size()));
    SourceBible bible = texts->read(
        name, [&](std::size_t done, std::size_t total) { progress.show(tr("reading"), done, total); });
    orderBooks(bible, options.order);
    bible.format = "SWORD";
    return bible;
}

BuildReport buildModule(const SourceBible& source, const std::string& path, const BuildOptions& options,
                        const std::string& fingerprint, IProgress& progress)
{
    constexpr std::size_t steps = 4;
    BuildReport report;
    progress.show(tr("preparing"), 0, steps);
    const ModuleData module = prepareModule(source, options, report);
    progress.show(tr("writing"), 1, steps);
    CModuleFolder folder(path);
    writeFiles(folder, module);
    if (!fingerprint.empty())
        folder.write(fingerprintFileName, fingerprint);
    progress.show(tr("verifying"), 2, steps);
    report.letters.module = checkWritten(folder.besidePath(), module, report.diff.roundTrips);
    report.checkLetters();
    provideGlobalStructure(folderOf(folder.path()));
    progress.show(tr("moving into place"), 3, steps);
    folder.publish();
    progress.show(tr("done"), steps, steps);
    report.folder = path;
    return report;
}

void provideGlobalStructure(const std::string& modulesDirectory)
{
    replaceDurably(modulesDirectory + '/' + globalStructureFileName, globalStructureFile());
}

} // namespace Kedrin::ModTool
