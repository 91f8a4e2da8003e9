#include "combo_fixture.h"

#include <QAbstractItemView>
#include <QMessageBox>
#include <QTimer>
#include <QWheelEvent>

using namespace Qt::StringLiterals;

namespace {

const QStringList gospels = {u"Матей"_s, u"Марк"_s, u"Лука"_s, u"Йоан"_s};

} // namespace

class ComboBoxTest : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { m.reset(); }

    void emptyBoxHasCurrentItemZero();
    void clearingIsSilentAndTakesTheText();
    void firstItemBecomesCurrentAndShowsItself();
    void laterItemLeavesTheTextAlone();
    void setItemsIsSilentAndStartsAtTheFirst();
    void setCurrentItemShowsTheItem();
    void setCurrentItemShowsTheCurrentItemAgain();
    void numberThatIsNoItemIsIgnored_data();
    void numberThatIsNoItemIsIgnored();
    void setCurrentTextFindsAnExactItem();
    void setCurrentTextOfNoItemChangesTheTextOnly();
    void choosingFromTheListTellsItemThenText();
    void choosingTheCurrentItemTellsItToo();
    void escapeInTheListTellsNothing();
    void arrowsChooseAndAreSilentAtTheEnds();
    void arrowsInAnEmptyBoxTellNothing();
    void wheelChooses();
    void focusLeavingTellsNothing_data();
    void focusLeavingTellsNothing();
    void messageBoxOpeningTellsNothing();
    void qtsOwnIndexIsTheCurrentItem();
    void changesOfTheTextAreToldQtsWay();

private:
    void chooseFromList(int row)
    {
        m->box->showPopup();
        QAbstractItemView* view = m->box->view();
        QVERIFY(QTest::qWaitForWindowExposed(view->window()));
        view->setCurrentIndex(m->box->model()->index(row, 0));
        QTest::keyClick(view, Qt::Key_Return);
    }

    std::unique_ptr<ComboFixture> m;
};

void ComboBoxTest::init()
{
    m = std::make_unique<ComboFixture>();
    QVERIFY(m->isShown);
    m->box->setItems(gospels);
}

void ComboBoxTest::emptyBoxHasCurrentItemZero()
{
    const qt3::ComboBox box;
    QCOMPARE(box.currentItem(), 0);
    QCOMPARE(box.count(), 0);
    QCOMPARE(box.currentText(), QString());
}

void ComboBoxTest::clearingIsSilentAndTakesTheText()
{
    m->box->setCurrentItem(2);
    const QSignalSpy index(m->box, &QComboBox::currentIndexChanged);
    const QSignalSpy text(m->box->lineEdit(), &QLineEdit::textChanged);
    m->box->clearItems();
    QCOMPARE(m->box->currentItem(), 0);
    QCOMPARE(m->box->count(), 0);
    QCOMPARE(m->text(), QString());
    QCOMPARE(index.count() + text.count(), 0);
    QCOMPARE(m->takeTold(), QStringList());
}

void ComboBoxTest::firstItemBecomesCurrentAndShowsItself()
{
    m->box->clearItems();
    m->box->setEditText(u"написано"_s);
    m->box->addItem(u"Деяния"_s);
    QCOMPARE(m->box->currentItem(), 0);
    QCOMPARE(m->text(), u"Деяния"_s);
    QCOMPARE(m->takeTold(), QStringList());
}

void ComboBoxTest::laterItemLeavesTheTextAlone()
{
    m->box->setEditText(u"написано"_s);
    m->box->addItem(u"Деяния"_s);
    QCOMPARE(m->text(), u"написано"_s);
    QCOMPARE(m->box->count(), 5);
}

void ComboBoxTest::setItemsIsSilentAndStartsAtTheFirst()
{
    m->box->setCurrentItem(3);
    m->box->setEditText(u"написано"_s);
    const QSignalSpy index(m->box, &QComboBox::currentIndexChanged);
    const QSignalSpy text(m->box->lineEdit(), &QLineEdit::textChanged);
    m->box->setItems({u"1"_s, u"2"_s});
    QCOMPARE(m->box->count(), 2);
    QCOMPARE(m->box->currentItem(), 0);
    QCOMPARE(m->box->currentIndex(), 0);
    QCOMPARE(m->text(), u"1"_s);
    QCOMPARE(index.count() + text.count(), 0);
    QCOMPARE(m->takeTold(), QStringList());
}

void ComboBoxTest::setCurrentItemShowsTheItem()
{
    m->box->setCurrentItem(2);
    QCOMPARE(m->box->currentItem(), 2);
    QCOMPARE(m->text(), u"Лука"_s);
    QCOMPARE(m->takeTold(), QStringList());
}

void ComboBoxTest::setCurrentItemShowsTheCurrentItemAgain()
{
    m->box->setEditText(u"написано"_s);
    m->box->setCurrentItem(0);
    QCOMPARE(m->text(), u"Матей"_s);
}

void ComboBoxTest::numberThatIsNoItemIsIgnored_data()
{
    QTest::addColumn<int>("item");
    QTest::newRow("-1") << -1;
    QTest::newRow("count") << 4;
    QTest::newRow("far") << 1000000;
}

void ComboBoxTest::numberThatIsNoItemIsIgnored()
{
    QFETCH(int, item);
    m->box->setCurrentItem(1);
    m->box->setCurrentItem(item);
    QCOMPARE(m->box->currentItem(), 1);
    QCOMPARE(m->text(), u"Марк"_s);
    m->box->clearItems();
    m->box->setCurrentItem(item);
    QCOMPARE(m->box->currentItem(), 0);
}

void ComboBoxTest::setCurrentTextFindsAnExactItem()
{
    m->box->setItems({u"а"_s, u"А"_s, u"А"_s});
    m->box->setCurrentText(u"А"_s);
    QCOMPARE(m->box->currentItem(), 1);
    QCOMPARE(m->text(), u"А"_s);
    QCOMPARE(m->takeTold(), QStringList());
}

void ComboBoxTest::setCurrentTextOfNoItemChangesTheTextOnly()
{
    m->box->setCurrentItem(1);
    for (const QString& text : {u"лука"_s, u"Лук"_s, u"Деяния"_s}) {
        m->box->setCurrentText(text);
        QCOMPARE(m->box->currentItem(), 1);
        QCOMPARE(m->text(), text);
    }
    QCOMPARE(m->takeTold(), QStringList());
}

void ComboBoxTest::choosingFromTheListTellsItemThenText()
{
    chooseFromList(2);
    QCOMPARE(m->takeTold(), QStringList({u"item 2"_s, u"text Лука"_s}));
    QCOMPARE(m->box->currentItem(), 2);
    QCOMPARE(m->text(), u"Лука"_s);
}

void ComboBoxTest::choosingTheCurrentItemTellsItToo()
{
    m->box->setEditText(u"написано"_s);
    chooseFromList(0);
    QCOMPARE(m->takeTold(), QStringList({u"item 0"_s, u"text Матей"_s}));
    QCOMPARE(m->text(), u"Матей"_s);
}

void ComboBoxTest::escapeInTheListTellsNothing()
{
    m->box->showPopup();
    QVERIFY(QTest::qWaitForWindowExposed(m->box->view()->window()));
    QTest::keyClick(m->box->view(), Qt::Key_Down);
    QTest::keyClick(m->box->view(), Qt::Key_Escape);
    QCOMPARE(m->takeTold(), QStringList());
    QCOMPARE(m->box->currentItem(), 0);
    QCOMPARE(m->text(), u"Матей"_s);
}

void ComboBoxTest::arrowsChooseAndAreSilentAtTheEnds()
{
    for (const Qt::Key key : {Qt::Key_Up, Qt::Key_Down, Qt::Key_Down, Qt::Key_Down, Qt::Key_Down, Qt::Key_Up})
        QTest::keyClick(m->box, key);
    QCOMPARE(m->takeTold(), QStringList({u"item 1"_s, u"text Марк"_s, u"item 2"_s, u"text Лука"_s,
                                         u"item 3"_s, u"text Йоан"_s, u"item 2"_s, u"text Лука"_s}));
    QCOMPARE(m->text(), u"Лука"_s);
}

void ComboBoxTest::arrowsInAnEmptyBoxTellNothing()
{
    m->box->clearItems();
    QTest::keyClick(m->box, Qt::Key_Down);
    QTest::keyClick(m->box, Qt::Key_Up);
    QCOMPARE(m->takeTold(), QStringList());
}

void ComboBoxTest::wheelChooses()
{
    const QPointF centre = m->box->rect().center();
    for (int turn = 0; turn < 5; ++turn) {
        QWheelEvent event(centre, m->box->mapToGlobal(centre), {}, {0, -120}, {}, {}, Qt::NoScrollPhase,
                          false);
        QApplication::sendEvent(m->box, &event);
    }
    QCOMPARE(m->takeTold(), QStringList({u"item 1"_s, u"text Марк"_s, u"item 2"_s, u"text Лука"_s,
                                         u"item 3"_s, u"text Йоан"_s}));
}

void ComboBoxTest::focusLeavingTellsNothing_data()
{
    QTest::addColumn<qt3::ComboBox::Return>("what");
    QTest::newRow("goesToItem") << qt3::ComboBox::Return::goesToItem;
    QTest::newRow("givesText") << qt3::ComboBox::Return::givesText;
}

void ComboBoxTest::focusLeavingTellsNothing()
{
    QFETCH(qt3::ComboBox::Return, what);
    m->box->setReturn(what);
    m->box->lineEdit()->selectAll();
    m->type(u"Лука"_s);
    m->other->setFocus(Qt::TabFocusReason);
    QCOMPARE(m->takeTold(), QStringList());
    QCOMPARE(m->box->currentItem(), 0);
    const bool isTextKept = what == qt3::ComboBox::Return::givesText;
    QCOMPARE(m->text(), isTextKept ? u"Лука"_s : u"Матей"_s);
}

void ComboBoxTest::messageBoxOpeningTellsNothing()
{
    m->box->setReturn(qt3::ComboBox::Return::givesText);
    m->box->lineEdit()->selectAll();
    m->type(u"Лука"_s);
    QMessageBox box;
    QTimer::singleShot(0, &box, [&box] { box.close(); });
    box.exec();
    QCOMPARE(m->takeTold(), QStringList());
    QCOMPARE(m->text(), u"Лука"_s);
}

void ComboBoxTest::qtsOwnIndexIsTheCurrentItem()
{
    m->box->setCurrentIndex(3);
    QCOMPARE(m->box->currentItem(), 3);
    m->box->setCurrentIndex(-1);
    QCOMPARE(m->box->currentItem(), 0);
}

void ComboBoxTest::changesOfTheTextAreToldQtsWay()
{
    const QSignalSpy spy(m->box, &QComboBox::editTextChanged);
    m->box->setEditText(u"написано"_s);
    m->box->setCurrentItem(1);
    QCOMPARE(spy.count(), 2);
}

QTEST_MAIN(ComboBoxTest)
#include "combo_box_test.moc"
