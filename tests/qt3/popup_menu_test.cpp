#include "popup_menu.h"

#include <QSignalSpy>
#include <QTest>

using namespace Qt::StringLiterals;

class PopupMenuTest : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void itemsAreFoundByTheirIdentifier();
    void unknownIdentifierHasNoTextAndNoCheck();
    void checkIsWhatWasSet();
    void choosingEmitsTheIdentifierOnce_data();
    void choosingEmitsTheIdentifierOnce();
    void choosingNeverChangesTheCheck_data();
    void choosingNeverChangesTheCheck();
    void slotMayChangeTheCheck();
    void menuIsClosedWhenTheChoiceIsReported();
    void mnemonicChooses();
    void actionsCheckOfOtherHandsIsRefused();
    void longestTextIsWholeAtAnyFont_data();
    void longestTextIsWholeAtAnyFont();

private:
    void click(int row)
    {
        QAction* action = m_menu->actions().at(row);
        m_menu->popup(QPoint(0, 0));
        QVERIFY(QTest::qWaitForWindowExposed(m_menu.get()));
        QTest::mouseClick(m_menu.get(), Qt::LeftButton, {}, m_menu->actionGeometry(action).center());
    }
    void choose(const QString& way, int row)
    {
        if (way == u"mouse") {
            click(row);
            return;
        }
        if (way == u"trigger") {
            m_menu->actions().at(row)->trigger();
            return;
        }
        m_menu->popup(QPoint(0, 0));
        QVERIFY(QTest::qWaitForWindowExposed(m_menu.get()));
        m_menu->setActiveAction(m_menu->actions().at(row));
        QTest::keyClick(m_menu.get(), Qt::Key_Return);
    }
    static void addWays()
    {
        QTest::addColumn<QString>("way");
        for (const char* way : {"mouse", "Return", "trigger"})
            QTest::newRow(way) << QString::fromLatin1(way);
    }

    std::unique_ptr<qt3::PopupMenu> m_menu;
};

void PopupMenuTest::init()
{
    m_menu = std::make_unique<qt3::PopupMenu>();
    m_menu->insertItem(u"Синодален"_s, 0);
    m_menu->insertItem(u"&Protestant"_s, 7);
}

void PopupMenuTest::itemsAreFoundByTheirIdentifier()
{
    QCOMPARE(m_menu->text(0), u"Синодален"_s);
    QCOMPARE(m_menu->text(7), u"&Protestant"_s);
    QCOMPARE(m_menu->actions().at(1)->text(), u"&Protestant"_s);
}

void PopupMenuTest::unknownIdentifierHasNoTextAndNoCheck()
{
    m_menu->setItemChecked(1, true);
    QVERIFY(m_menu->text(1).isNull());
    QVERIFY(!m_menu->isItemChecked(1));
    QCOMPARE(m_menu->actions().size(), 2);
}

void PopupMenuTest::checkIsWhatWasSet()
{
    QSignalSpy spy(m_menu.get(), &qt3::PopupMenu::activatedId);
    QVERIFY(!m_menu->isItemChecked(7));
    QVERIFY(!m_menu->actions().at(1)->isChecked());
    m_menu->setItemChecked(7, true);
    QVERIFY(m_menu->isItemChecked(7));
    QVERIFY(m_menu->actions().at(1)->isChecked());
    QVERIFY(!m_menu->isItemChecked(0));
    m_menu->setItemChecked(7, false);
    QVERIFY(!m_menu->isItemChecked(7));
    QVERIFY(!m_menu->actions().at(1)->isChecked());
    QCOMPARE(spy.count(), 0);
}

void PopupMenuTest::choosingEmitsTheIdentifierOnce_data() { addWays(); }

void PopupMenuTest::choosingEmitsTheIdentifierOnce()
{
    QFETCH(QString, way);
    QSignalSpy spy(m_menu.get(), &qt3::PopupMenu::activatedId);
    choose(way, 1);
    QCOMPARE(spy.count(), 1);
    QCOMPARE(spy.at(0).at(0).toInt(), 7);
}

void PopupMenuTest::choosingNeverChangesTheCheck_data() { addWays(); }

void PopupMenuTest::choosingNeverChangesTheCheck()
{
    QFETCH(QString, way);
    QAction* action = m_menu->actions().at(1);
    for (const bool isChecked : {false, true, false}) {
        m_menu->setItemChecked(7, isChecked);
        bool isSeen = !isChecked;
        bool isSeenInAction = !isChecked;
        const auto connection = connect(m_menu.get(), &qt3::PopupMenu::activatedId, this, [&](int id) {
            isSeen = m_menu->isItemChecked(id);
            isSeenInAction = action->isChecked();
        });
        choose(way, 1);
        disconnect(connection);
        QCOMPARE(isSeen, isChecked);
        QCOMPARE(isSeenInAction, isChecked);
        QCOMPARE(m_menu->isItemChecked(7), isChecked);
        QCOMPARE(action->isChecked(), isChecked);
    }
}

void PopupMenuTest::slotMayChangeTheCheck()
{
    connect(m_menu.get(), &qt3::PopupMenu::activatedId, this,
            [this](int id) { m_menu->setItemChecked(id, !m_menu->isItemChecked(id)); });
    for (const bool isChecked : {true, false, true}) {
        click(0);
        QCOMPARE(m_menu->isItemChecked(0), isChecked);
        QCOMPARE(m_menu->actions().at(0)->isChecked(), isChecked);
    }
}

void PopupMenuTest::menuIsClosedWhenTheChoiceIsReported()
{
    bool isVisible = true;
    connect(m_menu.get(), &qt3::PopupMenu::activatedId, this, [&] { isVisible = m_menu->isVisible(); });
    click(0);
    QVERIFY(!isVisible);
}

void PopupMenuTest::mnemonicChooses()
{
    QSignalSpy spy(m_menu.get(), &qt3::PopupMenu::activatedId);
    m_menu->popup(QPoint(0, 0));
    QVERIFY(QTest::qWaitForWindowExposed(m_menu.get()));
    QTest::keyClick(m_menu.get(), Qt::Key_P);
    QCOMPARE(spy.count(), 1);
    QCOMPARE(spy.at(0).at(0).toInt(), 7);
}

void PopupMenuTest::actionsCheckOfOtherHandsIsRefused()
{
    QAction* action = m_menu->actions().at(0);
    action->setChecked(true);
    QVERIFY(!action->isChecked());
    action->toggle();
    QVERIFY(!action->isChecked());
    QVERIFY(!m_menu->isItemChecked(0));
}

void PopupMenuTest::longestTextIsWholeAtAnyFont_data()
{
    QTest::addColumn<int>("points");
    for (const int points : {6, 8, 12, 14, 18, 24, 36, 72})
        QTest::addRow("%d points", points) << points;
}

/// The painting to the right of the check marks does not change when the menu gets wider.
void PopupMenuTest::longestTextIsWholeAtAnyFont()
{
    QFETCH(int, points);
    qt3::PopupMenu menu;
    menu.setFont(QFont(u"DejaVu Sans"_s, points));
    menu.insertItem(u"Нов превод"_s, 0);
    menu.insertItem(u"Къс"_s, 1);
    menu.setItemChecked(0, true);
    menu.popup(QPoint(0, 0));
    QVERIFY(QTest::qWaitForWindowExposed(&menu));
    const QRect row = menu.actionGeometry(menu.actions().constFirst());
    const QImage fitting = menu.grab(row.adjusted(2, 2, -8, -2)).toImage();
    menu.setMinimumWidth(menu.width() + 200);
    menu.resize(menu.width() + 200, menu.height());
    QCoreApplication::processEvents();
    const QImage roomy = menu.grab(row.adjusted(2, 2, -8, -2)).toImage();
    QVERIFY(fitting == roomy);
}

QTEST_MAIN(PopupMenuTest)
#include "popup_menu_test.moc"
