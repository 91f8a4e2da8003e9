#include "tab_bar.h"

#include <QSignalSpy>
#include <QTest>
#include <QWheelEvent>

using namespace Qt::StringLiterals;

class TabBarTest : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void identifiersCountFromZeroAndAreNeverReused();
    void indicesFollowThePlaceInTheBar();
    void unknownIdentifiersAndIndicesAreToldSo();
    void firstTabIsCurrentAtOnceAndSilently();
    void laterTabIsNotCurrent();
    void tabInsertedBeforeTheCurrentOneLeavesItCurrent();
    void settingAnotherTabEmitsOnce();
    void settingTheCurrentOrAnUnknownTabEmitsNothing();
    void removingTheCurrentTabGoesBackToThePreviousOne();
    void removingTheCurrentTabPrefersTheOldestOfThoseNeverCurrent();
    void removingEmitsNothing();
    void closingLeftOfTheCurrentTabMakesIndexAndIdentifierMeet();
    void emptiedBarHasNoCurrentTab();
    void tabLeftOverIsCurrentAndAClickOnItEmitsNothing();
    void pressOnAnotherTabEmitsBeforeTheRelease();
    void otherButtonsSelectNothing();
    void arrowsMoveToTheNeighbourAndDoNotWrap();
    void clickDoesNotTakeTheFocus();
    void wheelSwitchesNoTab();
    void disabledTabIsSkippedAndCannotBeClicked();
    void disablingTheCurrentTabSelectsANeighbour();
    void qtsOwnIndexEndsInSelected();
    void labelStaysAsGiven();
    void mnemonicSelects();
    void deletingTheBarEmitsNothing();
    void tabsAreAsWideAsTheirLabels();

private:
    void press(int id, Qt::MouseButton button = Qt::LeftButton)
    {
        QTest::mousePress(m_bar.get(), button, {}, m_bar->tabRect(m_bar->indexOf(id)).center());
    }
    QList<int> emitted() const
    {
        QList<int> ids;
        for (const QList<QVariant>& arguments : *m_spy)
            ids.append(arguments.at(0).toInt());
        return ids;
    }
    void addThree()
    {
        m_bar->addTab(u"А"_s);
        m_bar->addTab(u"Б"_s);
        m_bar->addTab(u"В"_s);
    }
    void show()
    {
        m_bar->resize(m_bar->sizeHint());
        m_bar->show();
        m_bar->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(m_bar.get()));
    }

    std::unique_ptr<qt3::TabBar> m_bar;
    std::unique_ptr<QSignalSpy> m_spy;
};

void TabBarTest::init()
{
    m_bar = std::make_unique<qt3::TabBar>();
    m_spy = std::make_unique<QSignalSpy>(m_bar.get(), &qt3::TabBar::selected);
}

void TabBarTest::cleanup()
{
    m_bar.reset();
    m_spy.reset();
}

void TabBarTest::identifiersCountFromZeroAndAreNeverReused()
{
    QCOMPARE(m_bar->addTab(u"А"_s), 0);
    QCOMPARE(m_bar->addTab(u"Б"_s), 1);
    m_bar->removeId(1);
    QCOMPARE(m_bar->addTab(u"В"_s), 2);
    m_bar->removeId(0);
    m_bar->removeId(2);
    QCOMPARE(m_bar->addTab(u"Г"_s), 3);
}

void TabBarTest::indicesFollowThePlaceInTheBar()
{
    addThree();
    QCOMPARE(m_bar->insertTab(u"Г"_s, 1), 3);
    QCOMPARE(m_bar->idAt(0), 0);
    QCOMPARE(m_bar->idAt(1), 3);
    QCOMPARE(m_bar->indexOf(2), 3);
    QCOMPARE(m_bar->tabText(1), u"Г"_s);
    m_bar->removeId(0);
    QCOMPARE(m_bar->indexOf(3), 0);
    QCOMPARE(m_bar->indexOf(2), 2);
    QCOMPARE(m_bar->insertTab(u"Д"_s, 99), 4);
    QCOMPARE(m_bar->indexOf(4), 3);
    QCOMPARE(m_bar->insertTab(u"Е"_s, -1), 5);
    QCOMPARE(m_bar->indexOf(5), 4);
}

void TabBarTest::unknownIdentifiersAndIndicesAreToldSo()
{
    addThree();
    m_bar->removeId(1);
    m_bar->removeId(1);
    m_bar->removeId(-1);
    QCOMPARE(m_bar->count(), 2);
    QCOMPARE(m_bar->indexOf(1), -1);
    QVERIFY(m_bar->label(1).isNull());
    QCOMPARE(m_bar->idAt(2), -1);
    QCOMPARE(m_bar->idAt(-1), -1);
}

void TabBarTest::firstTabIsCurrentAtOnceAndSilently()
{
    QCOMPARE(m_bar->currentTab(), -1);
    m_bar->addTab(u"А"_s);
    QCOMPARE(m_bar->currentTab(), 0);
    show();
    QCOMPARE(emitted(), QList<int>());
}

void TabBarTest::laterTabIsNotCurrent()
{
    addThree();
    QCOMPARE(m_bar->currentTab(), 0);
    QCOMPARE(m_bar->currentIndex(), 0);
    QCOMPARE(emitted(), QList<int>());
}

void TabBarTest::tabInsertedBeforeTheCurrentOneLeavesItCurrent()
{
    addThree();
    m_bar->setCurrentTab(1);
    m_bar->insertTab(u"Г"_s, 0);
    QCOMPARE(m_bar->currentTab(), 1);
    QCOMPARE(m_bar->currentIndex(), 2);
    QCOMPARE(emitted(), QList<int>({1}));
}

void TabBarTest::settingAnotherTabEmitsOnce()
{
    addThree();
    m_bar->setCurrentTab(2);
    QCOMPARE(m_bar->currentTab(), 2);
    QCOMPARE(m_bar->currentIndex(), 2);
    QCOMPARE(emitted(), QList<int>({2}));
}

void TabBarTest::settingTheCurrentOrAnUnknownTabEmitsNothing()
{
    addThree();
    m_bar->setCurrentTab(0);
    m_bar->setCurrentTab(3);
    m_bar->setCurrentTab(-1);
    QCOMPARE(m_bar->currentTab(), 0);
    QCOMPARE(emitted(), QList<int>());
}

void TabBarTest::removingTheCurrentTabGoesBackToThePreviousOne()
{
    addThree();
    m_bar->addTab(u"Г"_s);
    for (const int id : {3, 1, 2})
        m_bar->setCurrentTab(id);
    m_bar->removeId(2);
    QCOMPARE(m_bar->currentTab(), 1);
    QCOMPARE(m_bar->currentIndex(), 1);
    m_bar->removeId(1);
    QCOMPARE(m_bar->currentTab(), 3);
    QCOMPARE(m_bar->currentIndex(), 1);
    m_bar->removeId(3);
    QCOMPARE(m_bar->currentTab(), 0);
}

void TabBarTest::removingTheCurrentTabPrefersTheOldestOfThoseNeverCurrent()
{
    addThree();
    m_bar->removeId(0);
    QCOMPARE(m_bar->currentTab(), 1);
}

void TabBarTest::removingEmitsNothing()
{
    addThree();
    m_bar->setCurrentTab(1);
    m_spy->clear();
    m_bar->removeId(0);
    QCOMPARE(m_bar->currentTab(), 1);
    QCOMPARE(m_bar->currentIndex(), 0);
    m_bar->removeId(1);
    QCOMPARE(m_bar->currentTab(), 2);
    m_bar->removeId(2);
    QCOMPARE(emitted(), QList<int>());
}

void TabBarTest::closingLeftOfTheCurrentTabMakesIndexAndIdentifierMeet()
{
    // Closing a translation compares the index of its tab with the identifier that is current afterwards.
    addThree();
    m_bar->setCurrentTab(1);
    m_bar->setCurrentTab(2);
    m_bar->removeId(0);
    const int index = m_bar->indexOf(2);
    QCOMPARE(index, 1);
    m_bar->removeId(2);
    QCOMPARE(m_bar->currentTab(), index);
}

void TabBarTest::emptiedBarHasNoCurrentTab()
{
    m_bar->addTab(u"А"_s);
    m_bar->removeId(0);
    QCOMPARE(m_bar->currentTab(), -1);
    QCOMPARE(m_bar->count(), 0);
    m_bar->addTab(u"Б"_s);
    QCOMPARE(m_bar->currentTab(), 1);
    QCOMPARE(emitted(), QList<int>());
}

void TabBarTest::tabLeftOverIsCurrentAndAClickOnItEmitsNothing()
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

void TabBarTest::pressOnAnotherTabEmitsBeforeTheRelease()
{
    addThree();
    show();
    press(2);
    QCOMPARE(emitted(), QList<int>({2}));
    QTest::mouseRelease(m_bar.get(), Qt::LeftButton, {}, m_bar->tabRect(2).center());
    QCOMPARE(emitted(), QList<int>({2}));
}

void TabBarTest::otherButtonsSelectNothing()
{
    addThree();
    show();
    press(1, Qt::RightButton);
    press(1, Qt::MiddleButton);
    QCOMPARE(emitted(), QList<int>());
}

void TabBarTest::arrowsMoveToTheNeighbourAndDoNotWrap()
{
    addThree();
    show();
    for (const Qt::Key key : {Qt::Key_Left, Qt::Key_Right, Qt::Key_Right, Qt::Key_Right, Qt::Key_Left})
        QTest::keyClick(m_bar.get(), key);
    QCOMPARE(emitted(), QList<int>({1, 2, 1}));
}

void TabBarTest::clickDoesNotTakeTheFocus()
{
    QCOMPARE(m_bar->focusPolicy(), Qt::TabFocus);
    addThree();
    m_bar->setParent(nullptr);
    show();
    m_bar->clearFocus();
    press(1);
    QVERIFY(!m_bar->hasFocus());
}

void TabBarTest::wheelSwitchesNoTab()
{
    addThree();
    show();
    const QPointF centre = m_bar->rect().center();
    QWheelEvent event(centre, m_bar->mapToGlobal(centre), {}, {0, -120}, {}, {}, Qt::NoScrollPhase, false);
    QApplication::sendEvent(m_bar.get(), &event);
    QVERIFY(!event.isAccepted());
    QCOMPARE(m_bar->currentTab(), 0);
}

void TabBarTest::disabledTabIsSkippedAndCannotBeClicked()
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

void TabBarTest::disablingTheCurrentTabSelectsANeighbour()
{
    addThree();
    m_bar->setTabEnabled(0, false);
    QCOMPARE(m_bar->currentTab(), 1);
    QCOMPARE(emitted(), QList<int>({1}));
}

void TabBarTest::qtsOwnIndexEndsInSelected()
{
    addThree();
    m_bar->setCurrentIndex(2);
    QCOMPARE(m_bar->currentTab(), 2);
    QCOMPARE(emitted(), QList<int>({2}));
}

void TabBarTest::labelStaysAsGiven()
{
    m_bar->addTab(u"Стар & &Нов"_s);
    QCOMPARE(m_bar->label(0), u"Стар & &Нов"_s);
    QCOMPARE(m_bar->tabText(0), u"Стар & &Нов"_s);
}

void TabBarTest::mnemonicSelects()
{
    m_bar->addTab(u"One"_s);
    m_bar->addTab(u"&Two"_s);
    show();
    QTest::keyClick(m_bar.get(), Qt::Key_T, Qt::AltModifier);
    QCOMPARE(emitted(), QList<int>({1}));
}

void TabBarTest::deletingTheBarEmitsNothing()
{
    addThree();
    m_bar.reset();
    QCOMPARE(emitted(), QList<int>());
}

void TabBarTest::tabsAreAsWideAsTheirLabels()
{
    addThree();
    m_bar->resize(1000, 40);
    QVERIFY(m_bar->tabRect(2).right() < 500);
}

QTEST_MAIN(TabBarTest)
#include "tab_bar_test.moc"
