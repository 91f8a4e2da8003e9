#include "program_start.h"

#include <QCoreApplication>
#include <QProcess>
#include <QStandardPaths>

namespace Kedrin::Add {

bool startKedrin()
{
    const QStringList here{QCoreApplication::applicationDirPath()};
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
