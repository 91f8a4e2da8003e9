#include "list_box.h"
#include "word_model.h"

#include <QLineEdit>
#include <QScrollBar>
#include <QSignalSpy>
#include <QStringListModel>
#include <QTest>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

class ListBoxTest : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void emptyingAndRefillingWithoutFocusIsSilent();
    void emptyingWithFocusIsSilent();
    void refillingWithFocusShowsTheFirstRow();
    void pressOnAnotherRowHighlights_data();
    void pressOnAnotherRowHighlights();
    void pressOnTheCurrentRowHighlightsItAgain();
    void pressOnTheCurrentUnselectedRowHighlights();
    void pressBelowTheLastRowKeepsTheSelection();
    void firstPressHighlightsOnlyThatRow();
    void draggingHighlightsEveryRow();
    void focusByTabShowsTheFirstRow();
    void focusByTabKeepsTheCurrentRow();
    void keysMoveAndAreSilentAtTheEnds();
    void spaceAndReturnHighlightAnUnselectedRow_data();
    void spaceAndReturnHighlightAnUnselectedRow();
    void setCurrentItemHighlightsANewRowOnly();
    void longListAppearsAtOnce();
    void listWithoutModelHasNoRows();

private:
    void fill(int rows)
    {
        QStringList texts;
        for (int row = 0; row < rows; ++row)
            texts.append(u"Битие 1:%1"_s.arg(row + 1));
        m_model.setStringList(texts);
        m_list->resetRows();
    }
    QPoint centre(int row) const { return m_list->visualRect(m_model.index(row)).center(); }
    void press(int row, Qt::MouseButton button = Qt::LeftButton)
    {
        QTest::mouseClick(m_list->viewport(), button, {}, centre(row));
    }
    void focusByTab() { m_list->setFocus(Qt::TabFocusReason); }
    bool isSelected(int row) const { return m_list->selectionModel()->isSelected(m_model.index(row)); }
    QList<int> emitted() const
    {
        QList<int> rows;
        for (const QList<QVariant>& arguments : *m_spy)
            rows.append(arguments.at(0).toInt());
        return rows;
    }

    QStringListModel m_model;
    std::unique_ptr<QWidget> m_window;
    qt3::ListBox* m_list = nullptr;
    QLineEdit* m_other = nullptr;
    std::unique_ptr<QSignalSpy> m_spy;
};

void ListBoxTest::init()
{
    m_model.setStringList({});
    m_window = std::make_unique<QWidget>();
    auto* layout = new QVBoxLayout(m_window.get());
    m_other = new QLineEdit;
    m_list = new qt3::ListBox;
    layout->addWidget(m_other);
    layout->addWidget(m_list);
    m_list->setModel(&m_model);
    m_spy = std::make_unique<QSignalSpy>(m_list, &qt3::ListBox::highlighted);
    m_window->resize(300, 400);
    m_window->show();
    m_window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
    m_other->setFocus();
}

void ListBoxTest::cleanup()
{
    m_spy.reset();
    m_window.reset();
}

void ListBoxTest::emptyingAndRefillingWithoutFocusIsSilent()
{
    fill(3);
    m_list->setCurrentItem(2);
    m_spy->clear();
    fill(0);
    QCOMPARE(m_list->currentItem(), -1);
    fill(5);
    QCOMPARE(m_list->currentItem(), -1);
    QCOMPARE(emitted(), QList<int>());
}

void ListBoxTest::emptyingWithFocusIsSilent()
{
    fill(3);
    focusByTab();
    m_spy->clear();
    fill(0);
    QCOMPARE(m_list->currentItem(), -1);
    QCOMPARE(emitted(), QList<int>());
}

void ListBoxTest::refillingWithFocusShowsTheFirstRow()
{
    fill(3);
    focusByTab();
    m_list->setCurrentItem(1);
    m_spy->clear();
    fill(5);
    QCOMPARE(emitted(), QList<int>({0}));
    QCOMPARE(m_list->currentItem(), 0);
    QVERIFY(!isSelected(0));
}

void ListBoxTest::pressOnAnotherRowHighlights_data()
{
    QTest::addColumn<Qt::MouseButton>("button");
    QTest::newRow("left") << Qt::LeftButton;
    QTest::newRow("right") << Qt::RightButton;
    QTest::newRow("middle") << Qt::MiddleButton;
}

void ListBoxTest::pressOnAnotherRowHighlights()
{
    QFETCH(Qt::MouseButton, button);
    fill(4);
    press(2);
    press(1, button);
    QCOMPARE(emitted(), QList<int>({2, 1}));
    QCOMPARE(m_list->currentItem(), 1);
}

void ListBoxTest::pressOnTheCurrentRowHighlightsItAgain()
{
    fill(4);
    press(2);
    press(2);
    QCOMPARE(emitted(), QList<int>({2, 2}));
    QVERIFY(isSelected(2));
    QTest::mouseRelease(m_list->viewport(), Qt::LeftButton, {}, centre(2));
    QCOMPARE(emitted(), QList<int>({2, 2}));
}

void ListBoxTest::pressOnTheCurrentUnselectedRowHighlights()
{
    fill(4);
    focusByTab();
    QVERIFY(!isSelected(0));
    press(0);
    QCOMPARE(emitted(), QList<int>({0, 0}));
    QVERIFY(isSelected(0));
}

void ListBoxTest::pressBelowTheLastRowKeepsTheSelection()
{
    fill(2);
    press(1);
    m_spy->clear();
    QTest::mouseClick(m_list->viewport(), Qt::LeftButton, {},
                      m_list->viewport()->rect().bottomLeft() - QPoint(-5, 5));
    QCOMPARE(emitted(), QList<int>());
    QVERIFY(isSelected(1));
}

void ListBoxTest::firstPressHighlightsOnlyThatRow()
{
    fill(4);
    press(3);
    QVERIFY(m_list->hasFocus());
    QCOMPARE(emitted(), QList<int>({3}));
}

void ListBoxTest::draggingHighlightsEveryRow()
{
    fill(4);
    QTest::mousePress(m_list->viewport(), Qt::LeftButton, {}, centre(0));
    for (const int row : {1, 2, 1})
        QTest::mouseMove(m_list->viewport(), centre(row));
    QTest::mouseRelease(m_list->viewport(), Qt::LeftButton, {}, centre(1));
    QCOMPARE(emitted(), QList<int>({0, 1, 2, 1}));
}

void ListBoxTest::focusByTabShowsTheFirstRow()
{
    focusByTab();
    QCOMPARE(emitted(), QList<int>());
    m_other->setFocus();
    fill(3);
    focusByTab();
    QCOMPARE(emitted(), QList<int>({0}));
    QCOMPARE(m_list->currentItem(), 0);
    QVERIFY(!isSelected(0));

    m_other->setFocus();
    fill(3);
    QTest::keyClick(m_other, Qt::Key_Tab);
    QVERIFY(m_list->hasFocus());
    QCOMPARE(emitted(), QList<int>({0, 0}));
}

void ListBoxTest::focusByTabKeepsTheCurrentRow()
{
    fill(3);
    m_list->setCurrentItem(2);
    focusByTab();
    QCOMPARE(emitted(), QList<int>({2}));
}

void ListBoxTest::keysMoveAndAreSilentAtTheEnds()
{
    fill(3);
    focusByTab();
    for (const Qt::Key key :
         {Qt::Key_Up, Qt::Key_Down, Qt::Key_End, Qt::Key_Down, Qt::Key_Home, Qt::Key_PageDown})
        QTest::keyClick(m_list, key);
    QCOMPARE(emitted(), QList<int>({0, 1, 2, 0, 2}));
}

void ListBoxTest::spaceAndReturnHighlightAnUnselectedRow_data()
{
    QTest::addColumn<Qt::Key>("key");
    QTest::addColumn<QList<int>>("whenSelected");
    QTest::newRow("Space") << Qt::Key_Space << QList<int>();
    QTest::newRow("Return") << Qt::Key_Return << QList<int>({0});
    QTest::newRow("Enter") << Qt::Key_Enter << QList<int>({0});
}

void ListBoxTest::spaceAndReturnHighlightAnUnselectedRow()
{
    QFETCH(Qt::Key, key);
    fill(3);
    focusByTab();
    QTest::keyClick(m_list, key);
    QCOMPARE(emitted(), QList<int>({0, 0}));
    QVERIFY(isSelected(0));
    QFETCH(QList<int>, whenSelected);
    QTest::keyClick(m_list, key);
    QCOMPARE(emitted().mid(2), whenSelected);
}

void ListBoxTest::setCurrentItemHighlightsANewRowOnly()
{
    fill(3);
    for (const int row : {1, 1, 3, -1})
        m_list->setCurrentItem(row);
    QCOMPARE(emitted(), QList<int>({1}));
    QCOMPARE(m_list->currentItem(), 1);
    QVERIFY(isSelected(1));
}

void ListBoxTest::longListAppearsAtOnce()
{
    WordModel model;
    m_list->setModel(&model);
    m_list->resetRows();
    m_list->grab();
    QVERIFY(m_list->verticalScrollBar()->maximum() > 1000);
    const int asked = model.takeAsked();
    QVERIFY2(asked < 1000, qPrintable(QString::number(asked)));
    m_list->setModel(&m_model);
}

void ListBoxTest::listWithoutModelHasNoRows()
{
    qt3::ListBox list;
    QSignalSpy spy(&list, &qt3::ListBox::highlighted);
    list.resetRows();
    list.setCurrentItem(0);
    list.show();
    QTest::keyClick(&list, Qt::Key_Return);
    QCOMPARE(list.currentItem(), -1);
    QCOMPARE(spy.count(), 0);
}

QTEST_MAIN(ListBoxTest)
#include "list_box_test.moc"
