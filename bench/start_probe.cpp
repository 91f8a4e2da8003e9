// start_probe window APPLICATION_FOLDER   opens the program's window with the modules of a folder
// start_probe bare PAGE.html              opens a bare window with the same widgets
// start_probe page MODULE                 prints the page of a module's first chapter
// A window is closed as soon as its page is painted; then the number of the page's characters is printed, and that of
// the translations.

#include "application.h"
#include "bare_window.h"
#include "bggui.h"
#include "chapter_document.h"
#include "chapter_view.h"
#include "paint_watch.h"
#include "popup_menu.h"
#include "tolvo_bible.h"
#include "ut_utils.h"

#include <QFile>

#include <cstdlib>
#include <iostream>
#include <string>

namespace {

[[noreturn]] void finish(const QTextEdit& page, const std::string& further)
{
    std::cout << page.document()->characterCount() << " characters\n" << further << std::flush;
    std::_Exit(0);
}

void openBare(int argc, char** argv)
{
    PaintWatch<QApplication> application(argc, argv);
    QFile file(QString::fromLocal8Bit(argv[2]));
    if (!file.open(QIODevice::ReadOnly))
        return;
    BareWindow window(QString::fromUtf8(file.readAll()));
    application.showPainted(window, window.page()->viewport());
    finish(*window.page(), {});
}

void openReader(int argc, char** argv)
{
    ut::set_application_dirPath(argv[2]);
    PaintWatch<qt3::Application> application(argc, argv);
    BibleForm window;
    application.showPainted(window, window.textBrowser->viewport());
    finish(*window.textBrowser,
           std::to_string(window.menuTranslations->actions().size()) + " translations\n");
}

void printPage(const char* module)
{
    const Kedrin::Tolvo::CBible bible(module);
    std::cout << chapterDocument(bible, 0, 0, 0, false).toStdString();
}

} // namespace

int main(int argc, char** argv)
{
    const std::string mode = argc == 3 ? argv[1] : "";
    if (mode == "window")
        openReader(argc, argv);
    else if (mode == "bare")
        openBare(argc, argv);
    else if (mode == "page")
        printPage(argv[2]);
    return mode == "page" ? 0 : 2;
}
