#include "program_start.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>

namespace Kedrin::Add {

namespace {

/// The folder of the programs that users start: the one that kedrin-add is in, where this is its part in the private
/// directory.
QString programFolder()
{
    const QString here = QCoreApplication::applicationDirPath();
    const QStringList folders{here, QDir::cleanPath(here + QStringLiteral("/" KEDRIN_PUBLIC_DIR))};
    const QString window = QStandardPaths::findExecutable(QStringLiteral("kedrin-add"), folders);
    return window.isEmpty() ? here : QFileInfo(window).path();
}

} // namespace

bool startKedrin()
{
    const QStringList here{programFolder()};
    const QString name = QStringLiteral("kedrin");
    // as it is built, the launcher stands beside the program, which by itself does not show the user's own modules
    QString program = QStandardPaths::findExecutable(QStringLiteral("kedrin-launcher"), here);
    if (program.isEmpty())
        program = QStandardPaths::findExecutable(name, here);
    if (program.isEmpty())
        program = QStandardPaths::findExecutable(name);
    return !program.isEmpty() && QProcess::startDetached(program, {});
}

} // namespace Kedrin::Add
