#include "combo_fixture.h"
#include "word_model.h"

#include <QAbstractItemView>
#include <QScreen>
#include <QScrollBar>
#include <QStringListModel>

using namespace Qt::StringLiterals;

/// The list of a box, when it is opened.
class ComboOpenListTest : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m = std::make_unique<ComboFixture>();
        QVERIFY(m->isShown);
        m->box->setReturn(qt3::ComboBox::Return::givesText);
        m_words.takeAsked();
    }
    void cleanup() { m.reset(); }

    void nothingButOpeningCreatesTheList();
    void listHasTheFontAndTheNameOfTheBox();
    void openingKeepsTheTypedText();
    void openListIsNotWiderThanTheScreen();
    void openingALongListCostsLittle();
    void openListIsAsWideAsItsWords();
    void openLongListHasRoomForItsWordsBesideTheScrollBar();
    void listOpensAtTheTextInTheBox();
    void listOpensAtTheFirstItem();

private:
    std::unique_ptr<ComboFixture> m;
    WordModel m_words;
};

void ComboOpenListTest::nothingButOpeningCreatesTheList()
{
    m->box->setItems({u"едно"_s, u"две"_s});
    m->box->setListModel(&m_words);
    m->window.setFont(QFont(u"DejaVu Sans"_s, 20));
    m->box->setFont(QFont(u"DejaVu Sans"_s, 12));
    m->type(u"дума 7"_s);
    QTest::keyClick(m->box, Qt::Key_Down);
    m->box->grab();
    QVERIFY(!m->box->findChild<QAbstractItemView*>());
    m->box->showPopup();
    QVERIFY(m->box->findChild<QAbstractItemView*>());
}

void ComboOpenListTest::listHasTheFontAndTheNameOfTheBox()
{
    m->box->setAccessibleName(u"Глава"_s);
    const QFont beforeOpening(u"DejaVu Sans"_s, 17);
    const QFont afterOpening(u"DejaVu Sans"_s, 13);
    m->box->setFont(beforeOpening);
    m->box->showPopup();
    QCOMPARE(m->box->view()->font(), beforeOpening);
    QCOMPARE(m->box->view()->accessibleName(), u"Глава"_s);
    m->box->hidePopup();
    m->box->setFont(afterOpening);
    m->box->showPopup();
    QCOMPARE(m->box->view()->font(), afterOpening);
}

void ComboOpenListTest::openingALongListCostsLittle()
{
    m->box->setEditText({});
    m->box->setListModel(&m_words);
    m->box->showPopup();
    QVERIFY(QTest::qWaitForWindowExposed(m->box->view()->window()));
    const int asked = m_words.takeAsked();
    QVERIFY2(asked < 2000, qPrintable(QString::number(asked)));
    m->box->hidePopup();
}

void ComboOpenListTest::openListIsAsWideAsItsWords()
{
    const QString longWord(40, u'щ');
    QStringListModel words({u"ад"_s, longWord});
    m->box->setListModel(&words);
    m->box->showPopup();
    const QAbstractItemView* list = m->box->view();
    QVERIFY(QTest::qWaitForWindowExposed(list->window()));
    QVERIFY(list->viewport()->width() > list->fontMetrics().horizontalAdvance(longWord));
    m->box->hidePopup();

    words.setStringList({u"ад"_s});
    m->box->showPopup();
    QVERIFY(QTest::qWaitForWindowExposed(list->window()));
    QCOMPARE(list->window()->width(), m->box->width());
    m->box->hidePopup();
}

void ComboOpenListTest::openLongListHasRoomForItsWordsBesideTheScrollBar()
{
    const QString longWord(40, u'щ');
    QStringListModel words(QStringList(100, longWord));
    m->box->setListModel(&words);
    m->box->showPopup();
    auto* list = m->box->view();
    QVERIFY(QTest::qWaitForWindowExposed(list->window()));
    QVERIFY(list->verticalScrollBar()->isVisible());
    const QRect row = list->visualRect(words.index(0, 0));
    const auto picture = [&] { return list->viewport()->grab(row).toImage(); };
    const QImage open = picture();
    list->setTextElideMode(Qt::ElideNone); // if nothing has been left out, this changes nothing
    QCOMPARE(picture(), open);
}

void ComboOpenListTest::listOpensAtTheTextInTheBox()
{
    m->box->setListModel(&m_words);
    m->box->setEditText(u"Дума 4321"_s);
    m->box->showPopup();
    QVERIFY(QTest::qWaitForWindowExposed(m->box->view()->window()));
    QCOMPARE(m->box->view()->currentIndex().row(), 4321);
    QTest::keyClick(m->box->view(), Qt::Key_Escape);
    QCOMPARE(m->box->currentItem(), 0);
    QCOMPARE(m->text(), u"Дума 4321"_s);
    QCOMPARE(m->takeTold(), QStringList());
}

void ComboOpenListTest::listOpensAtTheFirstItem()
{
    m->box->setListModel(&m_words);
    m->box->setCurrentItem(4321);
    m->box->setEditText(u"Дума 0"_s);
    m->box->showPopup();
    QVERIFY(QTest::qWaitForWindowExposed(m->box->view()->window()));
    QCOMPARE(m->box->view()->currentIndex().row(), 0);
}

/// The system tells of the first opening twice.
void ComboOpenListTest::openingKeepsTheTypedText()
{
    m->box->setReturn(qt3::ComboBox::Return::goesToItem);
    m->box->setItems({u"Битие"_s, u"Псалтир"_s});
    for (int opening = 1; opening <= 2; ++opening) {
        m->box->lineEdit()->selectAll();
        m->type(u"Псал"_s);
        m->box->showPopup();
        QVERIFY(QTest::qWaitForWindowExposed(m->box->view()->window()));
        QTest::qWait(1);
        QTest::keyClick(m->box->view(), Qt::Key_Escape);
        QTest::qWait(1);
        QCOMPARE(m->text(), u"Псалтир"_s);
    }
}

void ComboOpenListTest::openListIsNotWiderThanTheScreen()
{
    m->box->setItems({QString(1000, u'щ')});
    m->box->showPopup();
    QVERIFY(QTest::qWaitForWindowExposed(m->box->view()->window()));
    QVERIFY(m->box->view()->width() <= m->box->screen()->availableGeometry().width());
}

QTEST_MAIN(ComboOpenListTest)
#include "combo_open_list_test.moc"
