#include "add_window.h"
#include "application.h"
#include "language.h"
#include "no_display.h"
#include "process_setup.h"
#include "shown_text.h"

#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

#include <clocale>
#include <iostream>
#include <memory>

using namespace Kedrin;

namespace {

/// The toolkit's own texts, such as those of its file dialog, in the language of the window.
void translateToolkit(QTranslator& translator)
{
    const QLocale language(Add::translated("en")); // the language's code
    if (translator.load(language, QStringLiteral("qtbase"), QStringLiteral("_"),
                        QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QCoreApplication::installTranslator(&translator);
}

} // namespace

/// Opens the window, with the file or folder that the first argument names. An exception that nobody answered is
/// written to standard error, and the status is 1.
int main(int argc, char** argv)
{
    try {
        ModTool::setUpProcess();
        auto noDisplay = std::make_unique<qt3::NoDisplay>(argc, argv);
        qt3::Application application(argc, argv);
        noDisplay->checkScreen();
        noDisplay.reset();
        ModTool::chooseLanguage();
        std::setlocale(LC_NUMERIC, "C"); // the toolkit has chosen the user's
        QTranslator translator;
        translateToolkit(translator);
        QGuiApplication::setDesktopFileName(QStringLiteral("kedrin-add"));
        Add::CAddWindow window;
        window.show();
        if (argc > 1)
            window.open(argv[1]);
        const int result = qt3::Application::exec();
        application.rethrow();
        return result;
    } catch (const std::exception& exception) {
        std::cerr << "kedrin-add: " << exception.what() << '\n';
    }
    return 1;
}
