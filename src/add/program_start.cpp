#include "program_start.h"

#include <QCoreApplication>
#include <QProcess>
#include <QStandardPaths>

namespace Kedrin::Add {

bool startKedrin()
{
    const QString name = QStringLiteral("kedrin");
    QString program = QStandardPaths::findExecutable(name, {QCoreApplication::applicationDirPath()});
    if (program.isEmpty())
        program = QStandardPaths::findExecutable(name);
    return !program.isEmpty() && QProcess::startDetached(program, {});
}

} // namespace Kedrin::Add
