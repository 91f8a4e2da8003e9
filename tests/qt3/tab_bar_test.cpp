#include "tab_bar_fixture.h"

#include <QProxyStyle>

using namespace Qt::StringLiterals;

namespace {

class StyleWithoutArrows : public QProxyStyle
{
public:
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* returned) const override
    {
        return hint == SH_TabBar_PreferNoArrows ? 1 : QProxyStyle::styleHint(hint, option, widget, returned);
    }
};

} // namespace

class TabBarTest : public QObject, private TabBarFixture
{
    Q_OBJECT

private slots:
    void init() { start(); }
    void cleanup() { end(); }

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
    void disablingTheCurrentTabSelectsANeighbour();
    void qtsOwnIndexEndsInSelected();
    void labelStaysAsGiven();
    void deletingTheBarEmitsNothing();
    void tabsAreAsWideAsTheirLabels();
    void arrowsAreThereInStylesWithoutThem();
};

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
    // Closing a translation compares the index of its tab with the current identifier after that.
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

/// Without them the bar would make the window as wide as all tabs.
void TabBarTest::arrowsAreThereInStylesWithoutThem()
{
    StyleWithoutArrows style;
    m_bar->setStyle(&style);
    QVERIFY(m_bar->usesScrollButtons());
    m_bar->setStyle(nullptr);
}

QTEST_MAIN(TabBarTest)
#include "tab_bar_test.moc"
