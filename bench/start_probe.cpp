// start_probe window APPLICATION_FOLDER   opens the program's window with the modules of a folder start_probe
// bare [PAGE.html]            opens a bare window with the same widgets Both print the number of characters
// of the page as soon as it is painted, and exit immediately.

#include "application.h"
#include "bare_window.h"
#include "bggui.h"
#include "chapter_view.h"
#include "paint_watch.h"
#include "ut_utils.h"

#include <QFile>

#include <iostream>

namespace {

[[noreturn]] void tell(const QTextEdit& page)
{
    std::cout << page.document()->characterCount() << std::endl;
    std::_Exit(0);
}

void openBare(int argc, char** argv)
{
    PaintWatch<QApplication> application(argc, argv);
    QString html;
    if (argc > 2) {
        QFile file(QString::fromLocal8Bit(argv[2]));
        if (!file.open(QIODevice::ReadOnly))
            return;
        html = QString::fromUtf8(file.readAll());
    }
    BareWindow window(html);
    application.showPainted(window, window.page()->viewport());
    tell(*window.page());
}

void openReader(int argc, char** argv)
{
    ut::set_application_dirPath(argv[2]);
    PaintWatch<qt3::Application> application(argc, argv);
    BibleForm window;
    application.showPainted(window, window.textBrowser->viewport());
    tell(*window.textBrowser);
}

} // namespace

int main(int argc, char** argv)
{
    const std::string mode = argc > 1 ? argv[1] : "";
    if (mode == "window" && argc == 3)
        openReader(argc, argv);
    else if (mode == "bare")
        openBare(argc, argv);
    return 2;
}
