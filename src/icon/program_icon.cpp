#include "program_icon.h"

#include <QGuiApplication>
#include <QIcon>

static void initialise()
{
    Q_INIT_RESOURCE(kedrin_icon); // must be in no namespace
}

namespace Kedrin {

void setProgramIcon(const QString& desktopFile)
{
    initialise();
    QIcon icon;
    for (const int size : {16, 24, 32, 48, 64})
        icon.addFile(QStringLiteral(":/icon/%1.png").arg(size), QSize(size, size));
    QGuiApplication::setWindowIcon(icon);
    QGuiApplication::setDesktopFileName(desktopFile);
}

} // namespace Kedrin
