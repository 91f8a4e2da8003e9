#include "chapter_view.h"
#include "combo_box.h"
#include "form_fixture.h"

#include <QLineEdit>
#include <QTest>

using namespace window_test;
using test_support::makeModule;
using test_support::ModuleFiles;
using test_support::plainBook;

namespace {

/// Chapters of five verses; the text ends inside the last one.
ModuleFiles cutModule(std::size_t chapters = 2)
{
    ModuleFiles files =
        makeModule("Отрязан", {plainBook(0, "Битие", std::vector<unsigned int>(chapters, 5))});
    std::string& text = files.bytes["CompactText.bin"];
    text.resize(text.size() - 3);
    return files;
}

/// A form whose book slot throws something other than a standard exception.
class ThrowingForm : public BibleForm
{
public:
    bool throwing = false;
    void comboBook_activated(int bookN) override
    {
        if (throwing)
            throw 1;
        BibleForm::comboBook_activated(bookN);
    }
};

void expectErrorBox(FormFixture& window, const QString& text)
{
    const QList<SeenBox> boxes = window.takeBoxes();
    QCOMPARE(boxes.size(), 1);
    QCOMPARE(boxes.first().icon, QMessageBox::Critical);
    QCOMPARE(boxes.first().caption, QStringLiteral("Error"));
    QCOMPARE(boxes.first().buttons, QStringList{QStringLiteral("OK")});
    if (!text.isNull())
        QCOMPARE(boxes.first().text, text);
    QVERIFY(!boxes.first().text.isEmpty());
}

/// From a chapter of Alpha that Beta lacks.
void lockInBeta(FormFixture& window)
{
    window.install("а", alphaModule());
    window.install("б", betaModule());
    window.pick(window.open().comboChapter, 29);
    window.chooseTranslation(1);
    expectErrorBox(window, {});
}

/// User actions no longer change the page, and no second message box opens.
void expectLocked(FormFixture& window)
{
    const BibleForm& form = window.form();
    const QString page = form.textBrowser->toHtml();
    for (qt3::ComboBox* box : {form.comboVerse, form.comboChapter, form.comboBook})
        window.pick(box, 0);
    FormFixture::press(Qt::Key_F8);
    window.clickTab(0);
    QCOMPARE(form.textBrowser->toHtml(), page);
    QVERIFY(window.takeBoxes().isEmpty());
}

} // namespace

/// A failed rendering locks the view until the program ends, in all its windows: each test runs in its own
/// process.
class LockTest : public QObject
{
    Q_OBJECT

private slots:
    void textThatIsCut();
    void bookWithoutChapters_data();
    void bookWithoutChapters();
    void chapterThatTheOtherTranslationLacks();
    void hitInABookThatTheOtherTranslationLacks();
    void boxesOfferWhatTheNewTranslationHas();
    void boxesOfferWhatEachTranslationHas();
    void exceptionOfAnotherKind();
    void otherWindowsAreLockedToo();
};

void LockTest::textThatIsCut()
{
    FormFixture window;
    window.install("а", cutModule());
    const BibleForm& form = window.open();
    QCOMPARE(window.red(), QStringLiteral("[1] Битие 1:1"));
    const QStringList page = window.page();
    window.pick(form.comboChapter, 1);
    expectErrorBox(window, {});
    QCOMPARE(window.page(), page);
    expectLocked(window);
}

void LockTest::bookWithoutChapters_data()
{
    QTest::addColumn<QString>("way");
    QTest::newRow("list") << QStringLiteral("list");
    QTest::newRow("key") << QStringLiteral("key");
    QTest::newRow("reference") << QStringLiteral("reference");
}

void LockTest::bookWithoutChapters()
{
    QFETCH(QString, way);
    FormFixture window;
    window.install("а", makeModule("А", {plainBook(0, "Битие", {5, 5}), plainBook(1, "Изход", {})}));
    BibleForm& form = window.open();
    const QStringList page = window.page();
    if (way == QLatin1String("list")) {
        window.pick(form.comboBook, 1);
    } else if (way == QLatin1String("key")) {
        form.comboBook->setFocus();
        FormFixture::press(Qt::Key_Down);
    } else {
        form.goToRef(Kedrin::Tolvo::CRef(1, 0, 0));
    }
    expectErrorBox(window, QStringLiteral("CBibleSructure::ValidateChapterID(): chapter out of range"));
    QCOMPARE(window.page(), page);
    QCOMPARE(form.comboChapter->count(), 0);
    FormFixture::press(Qt::Key_F8);
    QCOMPARE(window.page(), page);
    QVERIFY(window.takeBoxes().isEmpty());
}

void LockTest::chapterThatTheOtherTranslationLacks()
{
    FormFixture window;
    lockInBeta(window);
    QCOMPARE(window.red(), QStringLiteral("[1] Битие 30:1"));
    QCOMPARE(window.tabs(), (QStringList{QStringLiteral("Алфа"), QStringLiteral("[Бета]")}));
    expectLocked(window);
}

void LockTest::hitInABookThatTheOtherTranslationLacks()
{
    FormFixture window;
    window.install("а", alphaModule());
    window.install("б", betaModule());
    const BibleForm& form = window.open();
    FormFixture::typeInto(form.comboSearchText, QStringLiteral("Рут"));
    FormFixture::press(Qt::Key_Return);
    QCOMPARE(window.rows().size(), 22 + 23 + 18 + 22);
    window.chooseTranslation(1);
    QVERIFY(window.takeBoxes().isEmpty());
    window.clickHit(3);
    expectErrorBox(window, QStringLiteral("CTitles::localID() called for non existing book"));
    expectLocked(window);
}

void LockTest::boxesOfferWhatTheNewTranslationHas()
{
    FormFixture window;
    window.install("а", cutModule(50));
    window.install("б", makeModule("Б", {plainBook(0, "Битие", {4, 3, 2})}));
    const BibleForm& form = window.open();
    window.pick(form.comboChapter, 49);
    expectErrorBox(window, {});
    window.chooseTranslation(1);
    QCOMPARE(form.comboChapter->count(), 3);
    QCOMPARE(form.comboChapter->currentItem(), 2);
    QCOMPARE(form.comboVerse->count(), 2);
    window.pick(form.comboChapter, 0);
    QCOMPARE(form.comboVerse->count(), 4);
    expectLocked(window);
}

void LockTest::boxesOfferWhatEachTranslationHas()
{
    FormFixture window;
    lockInBeta(window);
    const BibleForm& form = window.form();
    const int chaptersOfBeta = form.comboChapter->count();
    window.clickTab(0);
    QCOMPARE(form.comboChapter->count(), 50);
    window.pick(form.comboChapter, 39);
    window.clickTab(1);
    QCOMPARE(form.comboChapter->count(), chaptersOfBeta);
    window.pick(form.comboChapter, chaptersOfBeta - 1);
    expectLocked(window);
}

void LockTest::exceptionOfAnotherKind()
{
    FormFixture window;
    window.install("а", alphaModule());
    auto& form = window.open<ThrowingForm>();
    form.throwing = true;
    form.goToRef(Kedrin::Tolvo::CRef(1, 0, 0));
    expectErrorBox(window, QStringLiteral("Unknown error"));
    form.throwing = false;
    expectLocked(window);
}

void LockTest::otherWindowsAreLockedToo()
{
    FormFixture window;
    window.install("а", cutModule());
    window.pick(window.open().comboChapter, 1);
    expectErrorBox(window, {});
    window.closeForm();
    const BibleForm& second = window.open();
    QVERIFY(second.textBrowser->toPlainText().isEmpty());
    QVERIFY(window.takeBoxes().isEmpty());
}

QTEST_MAIN(LockTest)
#include "lock_test.moc"
