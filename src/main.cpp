#include "application.h"
#include "bggui.h"
#include "no_display.h"
#include "program_icon.h"
#include "ut_utils.h"

#include <iostream>
#include <memory>

/// Opens the window with the modules in the program's directory and runs until it is closed. Only argv[0] is
/// used; the other arguments are the toolkit's. An unhandled exception is written to standard output, and the
/// exit status is still 0. If no window can be opened, one sentence on standard error says so, and the status
/// is 1.
int main(int argc, char** argv)
{
    try {
        ut::extract_application_dirPath(argv[0]); // the window looks for modules there
        auto noDisplay = std::make_unique<qt3::NoDisplay>(argc, argv);
        qt3::Application a(argc, argv);
        noDisplay->checkScreen();
        noDisplay.reset();
        Kedrin::setProgramIcon(QStringLiteral("kedrin"));
        BibleForm w;
        w.show();
        QObject::connect(&a, &QGuiApplication::lastWindowClosed, &a, &QCoreApplication::quit);
        const int result = a.exec();
        a.rethrow();
        return result;
    } catch (const std::exception& ex) {
        std::cout << "Main exception: " << ex.what() << std::endl;
    } catch (...) {
        std::cout << "Main exception: UNKNOWN" << std::endl;
    }
    return 0;
}
