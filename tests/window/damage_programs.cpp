// Damaged modules made from seeds, in the real program without a display: each is started with one, used by
// keys that the seed determines, and closed. It must end with status 0, or with 255 where it has no modules,
// and let no exception reach its main function.

#include "random_module.h"
#include "seed_run.h"
#include "temp_folder.h"

#include <QProcess>

namespace {

using test_support::Outcome;

constexpr unsigned int noModulesAt = 50; // every so many seeds the program has no modules

Outcome tryProgram(unsigned int seed)
{
    test_support::Random random(seed);
    test_support::ModuleFiles files = test_support::randomModule("А", random);
    test_support::damage(files, test_support::randomModule("Б", random), random);
    const test_support::TempFolder folder;
    const bool hasModules = seed % noModulesAt != 0;
    if (hasModules)
        files.write(folder.path() / "modules/bibles/а");
    std::filesystem::create_symlink(KEDRIN, folder.path() / "kedrin");

    QProcess program;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
    environment.insert(QStringLiteral("QT_PLUGIN_PATH"), QStringLiteral(PLUGINS));
    environment.insert(QStringLiteral("QT_QPA_GENERIC_PLUGINS"), QStringLiteral("user:%1").arg(seed));
    program.setProcessEnvironment(environment);
    program.setStandardErrorFile(QProcess::nullDevice());
    program.start(QString::fromStdString(folder.file("kedrin")), QStringList());
    if (!program.waitForFinished(120000))
        return {"does not end", false};
    if (program.exitStatus() != QProcess::NormalExit)
        return {"crashes", false};
    const QString output = QString::fromUtf8(program.readAllStandardOutput());
    if (output.contains(QLatin1String("Main exception")))
        return {"ends with an exception: " + output.toStdString(), false};
    const int status = program.exitCode();
    const std::string boxes = output.isEmpty()           ? "no box"
                              : output.count(u'\n') == 1 ? "one box"
                                                         : "several boxes";
    return {(hasModules ? "" : "no modules, ") + boxes + ", status " + std::to_string(status),
            status == (hasModules ? 0 : 255) && (hasModules || output.count(u'\n') == 1)};
}

} // namespace

int main(int argc, char** argv)
{
    return test_support::trySeeds(test_support::seedRunOf(argc, argv), tryProgram);
}
