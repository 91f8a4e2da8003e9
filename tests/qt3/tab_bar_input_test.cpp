#include "tab_bar_fixture.h"

#include <QWheelEvent>

using namespace Qt::StringLiterals;

class TabBarInputTest : public QObject, private TabBarFixture
{
    Q_OBJECT

private slots:
    void init() { start(); }
    void cleanup() { end(); }

    void tabLeftOverIsCurrentAndAClickOnItEmitsNothing();
    void pressOnAnotherTabEmitsBeforeTheRelease();
    void otherButtonsSelectNothing();
    void arrowsMoveToTheNeighbourAndDoNotWrap();
    void clickDoesNotTakeTheFocus();
    void wheelSwitchesNoTab();
    void disabledTabIsSkippedAndCannotBeClicked();
    void mnemonicSelects();
    void currentTabChosenAgainIsToldApart();
    void keysChooseTheCurrentTabAgain_data();
    void keysChooseTheCurrentTabAgain();
    void otherButtonsChooseNothingAgain();
};

void TabBarInputTest::tabLeftOverIsCurrentAndAClickOnItEmitsNothing()
{
    addThree();
    m_bar->setCurrentTab(2);
    m_bar->removeId(2);
    m_spy->clear();
    show();
    press(0);
    QCOMPARE(emitted(), QList<int>());
    press(1);
    QCOMPARE(emitted(), QList<int>({1}));
}

void TabBarInputTest::pressOnAnotherTabEmitsBeforeTheRelease()
{
    addThree();
    show();
    press(2);
    QCOMPARE(emitted(), QList<int>({2}));
    QTest::mouseRelease(m_bar.get(), Qt::LeftButton, {}, m_bar->tabRect(2).center());
    QCOMPARE(emitted(), QList<int>({2}));
}

void TabBarInputTest::otherButtonsSelectNothing()
{
    addThree();
    show();
    press(1, Qt::RightButton);
    press(1, Qt::MiddleButton);
    QCOMPARE(emitted(), QList<int>());
}

void TabBarInputTest::arrowsMoveToTheNeighbourAndDoNotWrap()
{
    addThree();
    show();
    for (const Qt::Key key : {Qt::Key_Left, Qt::Key_Right, Qt::Key_Right, Qt::Key_Right, Qt::Key_Left})
        QTest::keyClick(m_bar.get(), key);
    QCOMPARE(emitted(), QList<int>({1, 2, 1}));
}

void TabBarInputTest::clickDoesNotTakeTheFocus()
{
    QCOMPARE(m_bar->focusPolicy(), Qt::TabFocus);
    addThree();
    m_bar->setParent(nullptr);
    show();
    m_bar->clearFocus();
    press(1);
    QVERIFY(!m_bar->hasFocus());
}

void TabBarInputTest::wheelSwitchesNoTab()
{
    addThree();
    show();
    const QPointF centre = m_bar->rect().center();
    QWheelEvent event(centre, m_bar->mapToGlobal(centre), {}, {0, -120}, {}, {}, Qt::NoScrollPhase, false);
    QApplication::sendEvent(m_bar.get(), &event);
    QVERIFY(!event.isAccepted());
    QCOMPARE(m_bar->currentTab(), 0);
}

void TabBarInputTest::disabledTabIsSkippedAndCannotBeClicked()
{
    addThree();
    m_bar->setTabEnabled(1, false);
    show();
    press(1);
    QCOMPARE(emitted(), QList<int>());
    QTest::keyClick(m_bar.get(), Qt::Key_Right);
    QCOMPARE(emitted(), QList<int>({2}));
    QTest::keyClick(m_bar.get(), Qt::Key_Left);
    QCOMPARE(emitted(), QList<int>({2, 0}));
    m_bar->setTabEnabled(1, true);
    press(1);
    QCOMPARE(emitted(), QList<int>({2, 0, 1}));
}

void TabBarInputTest::mnemonicSelects()
{
    m_bar->addTab(u"One"_s);
    m_bar->addTab(u"&Two"_s);
    show();
    QTest::keyClick(m_bar.get(), Qt::Key_T, Qt::AltModifier);
    QCOMPARE(emitted(), QList<int>({1}));
}

void TabBarInputTest::currentTabChosenAgainIsToldApart()
{
    const QSignalSpy again(m_bar.get(), &qt3::TabBar::chosenAgain);
    addThree();
    show();
    press(0);
    QCOMPARE(ids(again), QList<int>({0}));
    QCOMPARE(emitted(), QList<int>());
    press(2);
    QCOMPARE(ids(again), QList<int>({0}));
    QCOMPARE(emitted(), QList<int>({2}));
    press(2);
    QTest::mouseRelease(m_bar.get(), Qt::LeftButton, {}, m_bar->tabRect(2).center());
    QCOMPARE(ids(again), QList<int>({0, 2}));
    QCOMPARE(emitted(), QList<int>({2}));
}

void TabBarInputTest::keysChooseTheCurrentTabAgain_data()
{
    QTest::addColumn<Qt::Key>("key");
    QTest::newRow("Space") << Qt::Key_Space;
    QTest::newRow("Return") << Qt::Key_Return;
    QTest::newRow("Enter") << Qt::Key_Enter;
}

void TabBarInputTest::keysChooseTheCurrentTabAgain()
{
    QFETCH(Qt::Key, key);
    const QSignalSpy again(m_bar.get(), &qt3::TabBar::chosenAgain);
    QTest::keyClick(m_bar.get(), key);
    QCOMPARE(again.count(), 0); // there is no tab
    addThree();
    m_bar->setCurrentTab(1);
    show();
    QTest::keyClick(m_bar.get(), key);
    QCOMPARE(ids(again), QList<int>({1}));
    QCOMPARE(emitted(), QList<int>({1}));
}

void TabBarInputTest::otherButtonsChooseNothingAgain()
{
    const QSignalSpy again(m_bar.get(), &qt3::TabBar::chosenAgain);
    addThree();
    show();
    press(0, Qt::RightButton);
    press(0, Qt::MiddleButton);
    QTest::mousePress(m_bar.get(), Qt::LeftButton, {}, QPoint(m_bar->tabRect(2).right() + 5, 5));
    QCOMPARE(again.count(), 0);
}

QTEST_MAIN(TabBarInputTest)
#include "tab_bar_input_test.moc"
