#include "form_fixture.h"

#include <QAccessible>
#include <QItemSelectionModel>
#include <QTest>

using namespace window_test;

namespace {

/// Three translations after the current one was closed: none is current, although the bar shows the second as
/// current.
void openAndCloseTheCurrent(FormFixture& window)
{
    window.install("а", alphaModule("А"));
    window.install("б", betaModule("Б"));
    window.install("в", alphaModule("В"));
    window.open();
    window.chooseTranslation(1);
    window.chooseTranslation(2);
    window.chooseTranslation(2);
    QCOMPARE(window.tabs(), (QStringList{QStringLiteral("А"), QStringLiteral("[Б]")}));
}

/// Checks that none is current: choosing a position has no effect.
bool isDead(const FormFixture& window)
{
    const QStringList page = window.page();
    FormFixture::press(Qt::Key_F8);
    const bool dead = window.page() == page;
    FormFixture::press(Qt::Key_F8);
    return dead;
}

void expectAlive(FormFixture& window, const char* book)
{
    QVERIFY(!isDead(window));
    window.pick(window.form().comboChapter, 2);
    QCOMPARE(window.red(), QStringLiteral("[1] %1 3:1").arg(QString::fromUtf8(book)));
    FormFixture::typeInto(window.form().comboSearchText, QStringLiteral("18"));
    FormFixture::press(Qt::Key_Return);
    QVERIFY(!window.rows().isEmpty());
    QVERIFY(window.takeBoxes().isEmpty());
}

} // namespace

/// Open tabs, and no current translation.
class NoTranslationTest : public QObject
{
    Q_OBJECT

private slots:
    void pressOnTheTabDrawnAsCurrentSelectsIt();
    void keyOnTheTabDrawnAsCurrentSelectsIt_data();
    void keyOnTheTabDrawnAsCurrentSelectsIt();
    void assistiveTechnologySelectsTheTabDrawnAsCurrent();
    void onlyTabLeftCanBeSelected();
    void currentTranslationsTabDoesNothing();
    void otherButtonsSelectNothing();
    void closingLeavesNothingBehind();
};

void NoTranslationTest::pressOnTheTabDrawnAsCurrentSelectsIt()
{
    FormFixture window;
    openAndCloseTheCurrent(window);
    QVERIFY(isDead(window));
    QTest::mousePress(window.form().tabsText, Qt::LeftButton, {},
                      window.form().tabsText->tabRect(1).center());
    expectAlive(window, "Битие");
    QCOMPARE(window.offered(window.form().comboBook).constFirst(), QStringLiteral("Псалми"));
}

void NoTranslationTest::keyOnTheTabDrawnAsCurrentSelectsIt_data()
{
    QTest::addColumn<Qt::Key>("key");
    QTest::newRow("Space") << Qt::Key_Space;
    QTest::newRow("Return") << Qt::Key_Return;
    QTest::newRow("Enter") << Qt::Key_Enter;
}

void NoTranslationTest::keyOnTheTabDrawnAsCurrentSelectsIt()
{
    QFETCH(Qt::Key, key);
    FormFixture window;
    openAndCloseTheCurrent(window);
    window.form().tabsText->setFocus(Qt::TabFocusReason);
    FormFixture::press(key);
    expectAlive(window, "Битие");
}

void NoTranslationTest::assistiveTechnologySelectsTheTabDrawnAsCurrent()
{
    FormFixture window;
    openAndCloseTheCurrent(window);
    QAccessibleInterface* bar = QAccessible::queryAccessibleInterface(window.form().tabsText);
    QAccessibleInterface* tab = bar->child(1);
    QCOMPARE(tab->text(QAccessible::Name), QStringLiteral("Б"));
    QVERIFY(tab->state().selected);
    tab->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    expectAlive(window, "Битие");
}

void NoTranslationTest::onlyTabLeftCanBeSelected()
{
    FormFixture window;
    openAndCloseTheCurrent(window);
    window.chooseTranslation(1);
    QCOMPARE(window.tabs(), QStringList{QStringLiteral("[А]")});
    if (isDead(window))
        window.clickTab(0);
    expectAlive(window, "Битие");
}

void NoTranslationTest::currentTranslationsTabDoesNothing()
{
    FormFixture window;
    openAndCloseTheCurrent(window);
    window.clickTab(1);
    window.form().checkRedoSearch->setChecked(true);
    FormFixture::typeInto(window.form().comboSearchText, QStringLiteral("няма такова"));
    FormFixture::press(Qt::Key_Return);
    QCOMPARE(window.takeBoxes().size(), 1);
    window.clickTab(1);
    window.form().tabsText->setFocus(Qt::TabFocusReason);
    FormFixture::press(Qt::Key_Space);
    QVERIFY(window.takeBoxes().isEmpty()); // a selection would have searched again
}

void NoTranslationTest::otherButtonsSelectNothing()
{
    FormFixture window;
    openAndCloseTheCurrent(window);
    const QPoint tab = window.form().tabsText->tabRect(1).center();
    QTest::mouseClick(window.form().tabsText, Qt::RightButton, {}, tab);
    QTest::mouseClick(window.form().tabsText, Qt::MiddleButton, {}, tab);
    QVERIFY(isDead(window));
}

void NoTranslationTest::closingLeavesNothingBehind()
{
    FormFixture window;
    window.install("а", alphaModule());
    BibleForm& form = window.open();
    const auto round = [&form] {
        form.menuTranslations_activated(0); // closes
        form.menuTranslations_activated(0); // opens
    };
    round();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    const auto selections = form.findChildren<QItemSelectionModel*>().size();
    const auto objects = form.findChildren<QObject*>().size();
    for (int i = 0; i < 100; ++i)
        round();
    QCOMPARE(form.findChildren<QItemSelectionModel*>().size(), selections);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCOMPARE(form.findChildren<QObject*>().size(), objects);
}

QTEST_MAIN(NoTranslationTest)
#include "no_translation_test.moc"
