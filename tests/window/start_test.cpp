#include "chapter_view.h"
#include "combo_box.h"
#include "fit_push_button.h"
#include "form_fixture.h"
#include "panel_box.h"
#include "popup_menu.h"
#include "tab_bar.h"

#include <QCoreApplication>
#include <QTest>
#include <QTimer>
#include <QToolBar>

using namespace window_test;
using test_support::ModuleFiles;

namespace {

/// The message for a module with a missing file.
QString missingFileMessage(const std::string& folder, const char* reader, const char* file)
{
    const QString path = QString::fromStdString(folder);
    return loadingMessage(
        QStringLiteral(
            "CBible::CBible(): Error loading Bible (from folder %1);\nError message: \"%2(): error "
            "opening file %1/%3\"")
            .arg(path, QString::fromLatin1(reader), QString::fromLatin1(file)));
}

ModuleFiles damagedModule()
{
    ModuleFiles files = alphaModule("Повредена");
    files.bytes.erase("BibleTitles.txt");
    return files;
}

/// The status with which the event loop ends without user actions; 99 if it does not end.
int endingStatus()
{
    QObject thisRun;
    QTimer::singleShot(0, &thisRun,
                       [&thisRun] { // a second iteration of the loop happens only if the first did not end it
                           QTimer::singleShot(0, &thisRun, [] { QCoreApplication::exit(99); });
                       });
    return QCoreApplication::exec();
}

} // namespace

/// The start of the window with valid, damaged and no modules.
class StartTest : public QObject
{
    Q_OBJECT

private slots:
    void firstModuleIsOpenAtItsBeginning();
    void menuListsTheModulesByTheirTitles();
    void searchBoxIsEmptyAtTheStart();
    void windowStaysOpenAfterAGoodStart();
    void noModulesFolderShowsOneBoxAndEnds();
    void emptyModulesFolderShowsOneBoxAndEnds();
    void damagedFirstModuleShowsOneBoxAndWaits();
    void onlyDamagedModulesLeaveAWindowThatWaits();
    void otherTranslationOpensAfterADamagedFirst();
    void nothingHappensWhileNoneWasEverOpened();
    void damagedModuleChangesNothing_data();
    void damagedModuleChangesNothing();
    void repairedModuleOpens();
    void failedSwitchNamesItselfOnItsButton();
};

void StartTest::firstModuleIsOpenAtItsBeginning()
{
    FormFixture window;
    window.install("b", betaModule());
    window.install("A", alphaModule());
    const BibleForm& form = window.open();
    QCOMPARE(window.tabs(), QStringList{QStringLiteral("[Алфа]")});
    QCOMPARE(window.checked(), QStringList{QStringLiteral("Алфа")});
    QCOMPARE(window.place(), QStringLiteral("Битие 1 1"));
    QCOMPARE(window.page().size(), 31);
    QCOMPARE(window.page().constFirst(), QStringLiteral("[1] Битие 1:1"));
    QCOMPARE(window.red(), QStringLiteral("[1] Битие 1:1"));
    QCOMPARE(window.offered(form.comboBook),
             (QStringList{QStringLiteral("Битие"), QStringLiteral("Рут"), QStringLiteral("Псалтир")}));
    QCOMPARE(form.comboChapter->count(), 50);
    QCOMPARE(form.comboVerse->count(), 31);
    QVERIFY(form.groupSearch->isEnabled());
    QVERIFY(form.toolbarLocation->isEnabled());
    QVERIFY(window.takeBoxes().isEmpty());
}

void StartTest::menuListsTheModulesByTheirTitles()
{
    FormFixture window;
    window.install("в", alphaModule("Трети"));
    window.install("Б", alphaModule("Втори"));
    window.install("а", alphaModule("Псалми & песни"));
    window.install(".скрит", alphaModule("Скрит"));
    const qt3::PopupMenu* menu = window.open().menuTranslations;
    QCOMPARE(menu->actions().size(), 3);
    QCOMPARE(menu->text(0), QStringLiteral("Псалми & песни"));
    QCOMPARE(menu->text(1), QStringLiteral("Втори"));
    QCOMPARE(menu->text(2), QStringLiteral("Трети"));
    QCOMPARE(window.tabs(), QStringList{QStringLiteral("[Псалми & песни]")});
}

void StartTest::searchBoxIsEmptyAtTheStart()
{
    FormFixture window;
    window.install("a", alphaModule());
    const BibleForm& form = window.open();
    QCOMPARE(form.comboSearchText->currentText(), QString());
    QVERIFY(form.comboSearchText->count() > 0);
    QVERIFY(window.rows().isEmpty());
}

void StartTest::windowStaysOpenAfterAGoodStart()
{
    FormFixture window;
    window.install("a", alphaModule());
    window.open();
    QCOMPARE(endingStatus(), 99);
}

void StartTest::noModulesFolderShowsOneBoxAndEnds()
{
    FormFixture window;
    {
        const BibleForm form;
        const QList<SeenBox> boxes = window.takeBoxes();
        QCOMPARE(boxes.size(), 1);
        QCOMPARE(boxes.first().icon, QMessageBox::Critical);
        QCOMPARE(boxes.first().caption, QStringLiteral("Грешка"));
        QCOMPARE(boxes.first().text, loadingMessage(QStringLiteral("No modules found under ") +
                                                    QString::fromStdString(window.modulesPath())));
        QCOMPARE(boxes.first().buttons, QStringList{QStringLiteral("OK")});
        QCOMPARE(endingStatus(), -1);
    }
    QVERIFY(window.takeBoxes().isEmpty());
}

void StartTest::emptyModulesFolderShowsOneBoxAndEnds()
{
    FormFixture window;
    std::filesystem::create_directories(window.modulesPath() + "/.не е модул");
    const BibleForm form;
    const QList<SeenBox> boxes = window.takeBoxes();
    QCOMPARE(boxes.size(), 1);
    QCOMPARE(boxes.first().text, loadingMessage(QStringLiteral("No modules found under ") +
                                                QString::fromStdString(window.modulesPath())));
    QCOMPARE(endingStatus(), -1);
}

void StartTest::damagedFirstModuleShowsOneBoxAndWaits()
{
    FormFixture window;
    window.install("Първи", damagedModule());
    window.install("ю", alphaModule());
    window.open();
    const QList<SeenBox> boxes = window.takeBoxes();
    QCOMPARE(boxes.size(), 1);
    QCOMPARE(boxes.first().icon, QMessageBox::Critical);
    QCOMPARE(boxes.first().caption, QStringLiteral("Грешка"));
    QCOMPARE(boxes.first().text,
             missingFileMessage(window.modulesPath() + "/Първи", "CTitles::CTitles", "BibleTitles.txt"));
    QCOMPARE(boxes.first().buttons, QStringList{QStringLiteral("OK")});
    QCOMPARE(window.tabs(), QStringList());
    QCOMPARE(window.checked(), QStringList());
    QCOMPARE(endingStatus(), 99);
}

void StartTest::onlyDamagedModulesLeaveAWindowThatWaits()
{
    FormFixture window;
    window.install("а", damagedModule());
    window.install("б", damagedModule());
    window.open();
    QCOMPARE(window.takeBoxes().size(), 1);
    window.chooseTranslation(1);
    QCOMPARE(window.takeBoxes().size(), 1);
    QCOMPARE(window.tabs(), QStringList());
    QCOMPARE(endingStatus(), 99);
}

void StartTest::otherTranslationOpensAfterADamagedFirst()
{
    FormFixture window;
    window.install("а", damagedModule());
    window.install("б", alphaModule());
    const BibleForm& form = window.open();
    window.takeBoxes();
    window.chooseTranslation(1);
    QCOMPARE(window.tabs(), QStringList{QStringLiteral("[Алфа]")});
    QCOMPARE(window.checked(), QStringList{QStringLiteral("Алфа")});
    QCOMPARE(window.place(), QStringLiteral("Битие 1 1"));
    QCOMPARE(window.red(), QStringLiteral("[1] Битие 1:1"));
    QVERIFY(form.groupSearch->isEnabled());
    QVERIFY(form.toolbarLocation->isEnabled());
    window.pick(form.comboChapter, 4);
    QCOMPARE(window.red(), QStringLiteral("[1] Битие 5:1"));
    QVERIFY(window.takeBoxes().isEmpty());
}

void StartTest::nothingHappensWhileNoneWasEverOpened()
{
    FormFixture window;
    window.install("а", damagedModule());
    BibleForm& form = window.open();
    window.takeBoxes();
    FormFixture::press(Qt::Key_F8);
    FormFixture::press(Qt::Key_F5);
    QTest::mouseClick(form.btnSearch, Qt::LeftButton);
    form.comboBook_activated(3);
    form.comboChapter_activated(0);
    form.comboVerse_activated(0);
    form.textBrowser_anchorClicked(QStringLiteral("gotoChapter"), QStringLiteral("1"));
    form.btnSearch_pressed();
    form._3_betha_demoAction_activated();
    QVERIFY(form.textBrowser->toPlainText().isEmpty());
    QVERIFY(window.takeBoxes().isEmpty());
}

void StartTest::damagedModuleChangesNothing_data()
{
    QTest::addColumn<QString>("reader");
    QTest::newRow("BibleTitles.txt") << QStringLiteral("CTitles::CTitles");
    QTest::newRow("BibleStructure.csv") << QStringLiteral("CBibleSructure::CBibleSructure");
    QTest::newRow("_Diff_.txt") << QStringLiteral("CDiff::CDiff");
    QTest::newRow("WordList.txt") << QString();
    QTest::newRow("CompactPoint.bin") << QString();
    QTest::newRow("CompactText.bin") << QString();
    QTest::newRow("Conc.bin") << QString();
    QTest::newRow("ConcP.bin") << QString();
}

void StartTest::damagedModuleChangesNothing()
{
    QFETCH(QString, reader);
    FormFixture window;
    window.install("а", alphaModule());
    ModuleFiles files = betaModule();
    files.bytes.erase(QTest::currentDataTag());
    window.install("повреда", files);
    const BibleForm& form = window.open();
    window.pick(form.comboChapter, 6);
    const QStringList page = window.page();

    window.chooseTranslation(1);
    const QList<SeenBox> boxes = window.takeBoxes();
    QCOMPARE(boxes.size(), 1);
    QCOMPARE(boxes.first().caption, QStringLiteral("Грешка"));
    QVERIFY(boxes.first().text.startsWith(
        QStringLiteral("Грешка при зареждане на модулите (\"CBible::CBible():")));
    QVERIFY(boxes.first().text.contains(QStringLiteral("/Читалня/modules/bibles/повреда")));
    if (!reader.isEmpty())
        QCOMPARE(boxes.first().text,
                 missingFileMessage(window.modulesPath() + "/повреда", reader.toLatin1().constData(),
                                    QTest::currentDataTag()));
    QCOMPARE(window.tabs(), QStringList{QStringLiteral("[Алфа]")});
    QCOMPARE(window.checked(), QStringList{QStringLiteral("Алфа")});
    QCOMPARE(window.page(), page);
    QCOMPARE(window.place(), QStringLiteral("Битие 7 1"));
    window.pick(form.comboBook, 2);
    QCOMPARE(window.red(), QStringLiteral("[1] Псалтир 5:1"));
}

void StartTest::repairedModuleOpens()
{
    FormFixture window;
    window.install("а", alphaModule());
    ModuleFiles files = betaModule();
    files.bytes.erase("Conc.bin");
    window.install("б", files);
    window.open();
    window.chooseTranslation(1);
    QCOMPARE(window.takeBoxes().size(), 1);
    window.install("б", betaModule());
    window.chooseTranslation(1);
    QVERIFY(window.takeBoxes().isEmpty());
    QCOMPARE(window.tabs(), (QStringList{QStringLiteral("Алфа"), QStringLiteral("[Бета]")}));
}

void StartTest::failedSwitchNamesItselfOnItsButton()
{
    FormFixture window;
    window.install("а", alphaModule());
    window.open().tabsText_selected(7);
    const QList<SeenBox> boxes = window.takeBoxes();
    QCOMPARE(boxes.size(), 1);
    QCOMPARE(boxes.first().icon, QMessageBox::Critical);
    QCOMPARE(boxes.first().caption, QStringLiteral("Грешка"));
    QVERIFY(!boxes.first().text.isEmpty());
    QCOMPARE(boxes.first().buttons, QStringList{QStringLiteral("Грешка при превключване на модулите.")});
}

QTEST_MAIN(StartTest)
#include "start_test.moc"
