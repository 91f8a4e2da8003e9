#include "tab_bar_fixture.h"

#include <QAccessible>

using namespace Qt::StringLiterals;

/// The accessibility interface of the bar.
class TabBarAccessibleTest : public QObject, private TabBarFixture
{
    Q_OBJECT

private slots:
    void init() { start(); }
    void cleanup() { end(); }

    void tabsAreNamedAndTheCurrentOneIsSelected();
    void tabLiesWhereItIsDrawn();
    void pressSelectsAnotherTab();
    void pressChoosesTheCurrentTabAgain();
    void disabledTabCannotBePressed();
    void tabThatHasGoneIsInvalid();
    void scrollButtonsStandAfterTheTabs();
    void focusIsOnTheCurrentTab();
    void tabDescribesItself();
    void tabHoldsNothing();
    void lastAmpersandIsNotSpoken();

private:
    QAccessibleInterface* seen() const { return QAccessible::queryAccessibleInterface(m_bar.get()); }
    void pressTab(int index) const
    {
        seen()->child(index)->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    }
};

void TabBarAccessibleTest::tabsAreNamedAndTheCurrentOneIsSelected()
{
    m_bar->addTab(u"&Two && three"_s);
    m_bar->addTab(u"Four"_s);
    QCOMPARE(seen()->role(), QAccessible::PageTabList);
    QCOMPARE(seen()->child(0)->role(), QAccessible::PageTab);
    QCOMPARE(seen()->child(0)->text(QAccessible::Name), u"Two & three"_s);
    QCOMPARE(seen()->child(0)->text(QAccessible::Accelerator), u"Alt+T"_s);
    QCOMPARE(seen()->child(1)->text(QAccessible::Name), u"Four"_s);
    QVERIFY(seen()->child(0)->state().selected && !seen()->child(1)->state().selected);
    m_bar->setCurrentTab(1);
    QVERIFY(!seen()->child(0)->state().selected && seen()->child(1)->state().selected);
    QCOMPARE(seen()->text(QAccessible::Name), u"Four"_s);
    QCOMPARE(seen()->child(1)->parent(), seen());
    QCOMPARE(seen()->indexOfChild(seen()->child(1)), 1);
}

void TabBarAccessibleTest::tabLiesWhereItIsDrawn()
{
    addThree();
    show();
    const QRect third = m_bar->tabRect(2);
    QCOMPARE(seen()->child(2)->rect(), QRect(m_bar->mapToGlobal(third.topLeft()), third.size()));
    const QPoint centre = seen()->child(2)->rect().center();
    QCOMPARE(seen()->childAt(centre.x(), centre.y()), seen()->child(2));
}

void TabBarAccessibleTest::pressSelectsAnotherTab()
{
    const QSignalSpy again(m_bar.get(), &qt3::TabBar::chosenAgain);
    addThree();
    pressTab(2);
    QCOMPARE(emitted(), QList<int>({2}));
    QCOMPARE(m_bar->currentTab(), 2);
    QCOMPARE(again.count(), 0);
}

void TabBarAccessibleTest::pressChoosesTheCurrentTabAgain()
{
    const QSignalSpy again(m_bar.get(), &qt3::TabBar::chosenAgain);
    addThree();
    m_bar->setCurrentTab(1);
    m_bar->removeId(1);
    m_spy->clear();
    pressTab(m_bar->currentIndex());
    QCOMPARE(ids(again), QList<int>({m_bar->currentTab()}));
    QCOMPARE(emitted(), QList<int>());
}

void TabBarAccessibleTest::disabledTabCannotBePressed()
{
    addThree();
    m_bar->setTabEnabled(2, false);
    QVERIFY(seen()->child(2)->state().disabled);
    pressTab(2);
    QCOMPARE(m_bar->currentTab(), 0);
}

void TabBarAccessibleTest::tabThatHasGoneIsInvalid()
{
    addThree();
    QAccessibleInterface* last = seen()->child(2);
    const int before = seen()->childCount();
    m_bar->removeId(0);
    QVERIFY(!last->isValid() && last->state().invalid);
    QCOMPARE(last->text(QAccessible::Name), QString());
    QCOMPARE(seen()->childCount(), before - 1);
    QCOMPARE(seen()->child(0)->text(QAccessible::Name), u"Б"_s);
}

void TabBarAccessibleTest::scrollButtonsStandAfterTheTabs()
{
    addThree();
    const int buttons = seen()->childCount() - m_bar->count();
    QCOMPARE(buttons, 2);
    for (int index = m_bar->count(); index < seen()->childCount(); ++index) {
        QVERIFY(seen()->child(index)->object() != nullptr);
        QCOMPARE(seen()->indexOfChild(seen()->child(index)), index);
    }
    QVERIFY(seen()->child(-1) == nullptr);
    QVERIFY(seen()->child(seen()->childCount()) == nullptr);
}

void TabBarAccessibleTest::focusIsOnTheCurrentTab()
{
    addThree();
    m_bar->setCurrentTab(1);
    show();
    m_bar->clearFocus();
    QVERIFY(seen()->focusChild() == nullptr);
    m_bar->setFocus(Qt::TabFocusReason);
    QCOMPARE(seen()->focusChild(), seen()->child(1));
    QVERIFY(seen()->child(1)->state().focused && !seen()->child(0)->state().focused);
}

void TabBarAccessibleTest::tabDescribesItself()
{
    addThree();
    m_bar->setTabToolTip(1, u"tip"_s);
    m_bar->setTabWhatsThis(1, u"help"_s);
    m_bar->setAccessibleTabName(2, u"named"_s);
    show();
    QAccessibleInterface* second = seen()->child(1);
    QCOMPARE(second->text(QAccessible::Description), u"tip"_s);
    QCOMPARE(second->text(QAccessible::Help), u"help"_s);
    QCOMPARE(second->text(QAccessible::Value), QString());
    QCOMPARE(seen()->child(2)->text(QAccessible::Name), u"named"_s);
    QVERIFY(second->window() != nullptr && second->window() == seen()->window());
    QCOMPARE(second->actionInterface()->actionNames(),
             QStringList{QAccessibleActionInterface::pressAction()});
    QVERIFY(
        second->actionInterface()->keyBindingsForAction(QAccessibleActionInterface::pressAction()).isEmpty());
    second->actionInterface()->doAction(QAccessibleActionInterface::showMenuAction());
    QCOMPARE(m_bar->currentTab(), 0);
    QVERIFY(second->valueInterface() == nullptr);
}

void TabBarAccessibleTest::tabHoldsNothing()
{
    addThree();
    QAccessibleInterface* tab = seen()->child(0);
    const QPoint centre = tab->rect().center();
    QCOMPARE(tab->childCount(), 0);
    QVERIFY(tab->child(0) == nullptr && tab->childAt(centre.x(), centre.y()) == nullptr);
    QCOMPARE(tab->indexOfChild(seen()->child(1)), -1);
    tab->setText(QAccessible::Name, u"other"_s);
    QCOMPARE(tab->text(QAccessible::Name), u"А"_s);
}

void TabBarAccessibleTest::lastAmpersandIsNotSpoken()
{
    m_bar->addTab(u"One&"_s);
    QCOMPARE(seen()->child(0)->text(QAccessible::Name), u"One"_s);
}

QTEST_MAIN(TabBarAccessibleTest)
#include "tab_bar_accessible_test.moc"
