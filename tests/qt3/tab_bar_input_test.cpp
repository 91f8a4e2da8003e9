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

QTEST_MAIN(TabBarInputTest)
#include "tab_bar_input_test.moc"
