#include "add_program.h"

#include "add_window.h"
#include "application.h"
#include "language.h"
#include "no_display.h"
#include "no_texts_box.h"
#include "program_icon.h"
#include "shown_text.h"

#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

#include <clocale>
#include <iostream>
#include <memory>
#include <string_view>

namespace Kedrin::Add {

namespace {

/// That of Kedrin itself where no translation is installed.
constexpr int statusWithoutTexts = 255;

/// The toolkit's own texts, such as those of its file dialog, in the language of the window.
void translateToolkit(QTranslator& translator)
{
    const QLocale language(translated("en")); // the language's code
    if (translator.load(language, QStringLiteral("qtbase"), QStringLiteral("_"),
                        QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QCoreApplication::installTranslator(&translator);
}

} // namespace

int runAddProgram(int argc, char** argv, const ModTool::ISword& sword)
{
    try {
        auto noDisplay = std::make_unique<qt3::NoDisplay>(argc, argv);
        qt3::Application application(argc, argv);
        noDisplay->checkScreen();
        noDisplay.reset();
        ModTool::chooseLanguage();
        std::setlocale(LC_NUMERIC, "C"); // the toolkit has chosen the user's
        QTranslator translator;
        translateToolkit(translator);
        setProgramIcon(QStringLiteral("kedrin-add"));
        const bool asksFirst = argc > 1 && argv[1] == std::string_view("--no-texts");
        if (asksFirst && !wantsToAddText())
            return statusWithoutTexts;
        CAddWindow window(sword);
        window.show();
        if (argc > 1 && !asksFirst)
            window.open(argv[1]);
        const int result = qt3::Application::exec();
        application.rethrow();
        return result;
    } catch (const std::exception& exception) {
        std::cerr << "kedrin-add: " << exception.what() << '\n';
    }
    return 1;
}

} // namespace Kedrin::Add
