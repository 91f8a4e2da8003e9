// Damaged modules made from seeds, in the window without a display: each is opened beside a sound one, read,
// searched and closed by a user whose actions the seed determines. Allowed: one box when it is opened, and the
// sound one can be read; or it can be used, with at most one documented box for each action.

#include "application.h"
#include "damaged_reading.h"
#include "random_module.h"
#include "refusals.h"
#include "seed_run.h"

#include <QTest>

namespace {

using namespace window_test;
using test_support::Outcome;
using test_support::plainBook;
using test_support::Random;

constexpr unsigned int actionsForEach = 12;

Outcome failure(const QString& what) { return {what.toStdString(), false, true}; }

bool isPromisedRefusal(const SeenBox& box, const std::string& folder)
{
    const QString beginning = loadingMessage(QStringLiteral("\x01")).section(u'\x01', 0, 0);
    const QString end = loadingMessage(QStringLiteral("\x01")).section(u'\x01', 1, 1);
    if (box.caption != QStringLiteral("Грешка") || !box.text.startsWith(beginning) || !box.text.endsWith(end))
        return false;
    const QString inner = box.text.mid(beginning.size(), box.text.size() - beginning.size() - end.size());
    const std::string message = inner.toStdString();
    return test_support::isPromisedRefusal(message, folder) || test_support::isPromisedDoubt(message, folder);
}

/// Whether the sound translation, which is the second item of the menu, opens or becomes current and shows
/// its first verse; after a failed rendering only its tab.
bool soundOneOpens(FormFixture& window, bool locked)
{
    if (!window.checked().contains(QStringLiteral("Цял")))
        window.chooseTranslation(1);
    else
        window.clickTab(window.form().tabsText->count() - 1);
    if (!window.takeBoxes().isEmpty() || !DamagedReading::slotException().isEmpty() ||
        window.tabs().isEmpty() || window.tabs().constLast() != QStringLiteral("[Цял]"))
        return false;
    return locked || window.red().startsWith(QStringLiteral("[1] Пети "));
}

bool damagedOneCloses(FormFixture& window)
{
    window.chooseTranslation(0);
    return window.takeBoxes().isEmpty() && DamagedReading::slotException().isEmpty() &&
           window.tabs().size() == 1 && window.checked() == QStringList{QStringLiteral("Цял")};
}

/// The window is open with the damaged translation, whose boxes have been seen.
Outcome useBoth(FormFixture& window, Random& random)
{
    const ReadingEnd end = DamagedReading(window, random).actionsOf(actionsForEach);
    if (!end.defect.isEmpty())
        return failure(end.defect);
    if (!soundOneOpens(window, end.readingFailed))
        return failure(QStringLiteral("the sound translation does not open after reading"));
    if (!damagedOneCloses(window))
        return failure(QStringLiteral("the damaged translation does not close"));
    if (end.readingFailed)
        return {"opens; a box while reading", true, true};
    return {end.searchFailed ? "opens; a box while searching" : "opens and can be used"};
}

Outcome tryModule(unsigned int seed)
{
    Random random(seed);
    test_support::ModuleFiles files = test_support::randomModule("А", random);
    test_support::damage(files, test_support::randomModule("Б", random), random);
    FormFixture window;
    window.install("а", files);
    window.install("б", test_support::makeModule("Цял", {plainBook(76, "Пети", {3, 2})}));
    window.open();
    const QList<SeenBox> boxes = window.takeBoxes();
    if (const QString exception = DamagedReading::slotException(); !exception.isEmpty())
        return failure(QStringLiteral("opening: exception out of a slot: ") + exception);
    if (boxes.isEmpty() && window.tabs().size() == 1)
        return useBoth(window, random);
    if (boxes.size() != 1 || !window.tabs().isEmpty() ||
        !isPromisedRefusal(boxes.first(), window.modulesPath() + "/а"))
        return failure(
            QStringLiteral("%1 boxes when opened, \"%2\"").arg(boxes.size()).arg(boxes.value(0).text));
    if (!soundOneOpens(window, false))
        return failure(QStringLiteral("the sound translation does not open after the box"));
    return {"one box when opened"};
}

} // namespace

int main(int argc, char** argv)
{
    const test_support::SeedRun run = test_support::seedRunOf(argc, argv);
    qt3::Application application(argc, argv);
    return test_support::trySeeds(run, tryModule);
}
