#include "combo_fixture.h"
#include "word_model.h"

#include <QAbstractItemView>
#include <QStringListModel>

using namespace Qt::StringLiterals;

namespace {

/// A model that always ignores case when searching.
class CaselessModel : public WordModel
{
public:
    QModelIndexList match(const QModelIndex& start, int role, const QVariant& value, int hits,
                          Qt::MatchFlags flags) const override
    {
        return WordModel::match(start, role, value, hits, flags & ~Qt::MatchFlags(Qt::MatchCaseSensitive));
    }
};

} // namespace

class ComboListTest : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { m.reset(); }

    void exchangeKeepsTheTextSelectionAndCursor_data();
    void exchangeKeepsTheTextSelectionAndCursor();
    void exchangeIsSilentAndStartsAtItemZero();
    void exchangeOfAnEmptyTextStaysEmpty();
    void exchangeCostsNothing();
    void sizeHintDoesNotWalkTheList();
    void noListLeavesTheText();
    void destroyedListLeavesTheText();
    void itemsAfterAListShowThemselves();
    void textSetKeepsItsCaseInACaselessList();
    void callerKeepsTheList();
    void boxMayDieBeforeOrAfterTheList();
    void exchangesLeaveNothingBehind();

private:
    std::unique_ptr<ComboFixture> m;
    WordModel m_words;
};

void ComboListTest::init()
{
    m = std::make_unique<ComboFixture>();
    QVERIFY(m->isShown);
    m->box->setReturn(qt3::ComboBox::Return::givesText);
    m->box->setItems({u"едно"_s, u"две"_s, u"три"_s});
    m->box->setCurrentItem(2);
    m_words.takeAsked();
}

void ComboListTest::exchangeKeepsTheTextSelectionAndCursor_data()
{
    QTest::addColumn<int>("anchor");
    QTest::addColumn<int>("length");
    QTest::addColumn<int>("cursor");
    QTest::newRow("cursor at the start") << 0 << 0 << 0;
    QTest::newRow("cursor inside") << 3 << 0 << 3;
    QTest::newRow("selected forwards") << 1 << 4 << 5;
    QTest::newRow("selected backwards") << 5 << -4 << 1;
}

void ComboListTest::exchangeKeepsTheTextSelectionAndCursor()
{
    QFETCH(int, anchor);
    QFETCH(int, length);
    QFETCH(int, cursor);
    QLineEdit* edit = m->box->lineEdit();
    m->box->setEditText(u"написано"_s);
    edit->setCursorPosition(anchor);
    if (length != 0)
        edit->setSelection(anchor, length);
    m->box->setListModel(&m_words);
    QCOMPARE(m->text(), u"написано"_s);
    QCOMPARE(edit->cursorPosition(), cursor);
    QCOMPARE(edit->selectedText().size(), std::abs(length));
}

void ComboListTest::exchangeIsSilentAndStartsAtItemZero()
{
    const QSignalSpy index(m->box, &QComboBox::currentIndexChanged);
    const QSignalSpy text(m->box->lineEdit(), &QLineEdit::textChanged);
    m->box->setListModel(&m_words);
    QCOMPARE(m->box->count(), WordModel::words);
    QCOMPARE(m->box->currentItem(), 0);
    QCOMPARE(m->box->currentIndex(), 0);
    QCOMPARE(m->text(), u"три"_s);
    m->box->setListModel(&m_words);
    QCOMPARE(m->text(), u"три"_s);
    QCOMPARE(index.count() + text.count(), 0);
    QCOMPARE(m->takeTold(), QStringList());
}

void ComboListTest::exchangeOfAnEmptyTextStaysEmpty()
{
    m->box->setEditText({});
    m->box->setListModel(&m_words);
    QCOMPARE(m->text(), QString());
    QTest::keyClick(m->box, Qt::Key_Return);
    QCOMPARE(m->takeTold(), QStringList({u"text "_s}));
}

void ComboListTest::exchangeCostsNothing()
{
    m->box->setListModel(&m_words);
    QCoreApplication::processEvents();
    m->box->grab();
    QVERIFY(m_words.takeAsked() < 50);
}

void ComboListTest::sizeHintDoesNotWalkTheList()
{
    const QSize hint = m->box->sizeHint();
    m->box->setListModel(&m_words);
    QCOMPARE(m->box->sizeHint(), hint);
    m->box->minimumSizeHint();
    m->box->setFont(QFont(m->box->font().family(), 20));
    m->box->sizeHint();
    QVERIFY(m_words.takeAsked() < 50);
}

void ComboListTest::noListLeavesTheText()
{
    m->box->setListModel(&m_words);
    m->box->setListModel(nullptr);
    QCOMPARE(m->box->count(), 0);
    QCOMPARE(m->box->currentItem(), 0);
    QCOMPARE(m->text(), u"три"_s);
    QCOMPARE(m->takeTold(), QStringList());
}

void ComboListTest::destroyedListLeavesTheText()
{
    const QSignalSpy text(m->box->lineEdit(), &QLineEdit::textChanged);
    auto words = std::make_unique<WordModel>();
    m->box->setListModel(words.get());
    m->box->showPopup();
    m->box->hidePopup();
    words.reset();
    QCOMPARE(m->box->count(), 0);
    QCOMPARE(m->box->currentItem(), 0);
    QCOMPARE(m->text(), u"три"_s);
    QCOMPARE(text.count(), 0);
    m->type(u"д"_s);
    QTest::keyClick(m->box, Qt::Key_Down);
    m->box->setListModel(&m_words);
    QCOMPARE(m->box->count(), WordModel::words);
}

void ComboListTest::itemsAfterAListShowThemselves()
{
    m->box->setListModel(&m_words);
    m->box->setItems({u"четири"_s});
    QCOMPARE(m->box->count(), 1);
    QCOMPARE(m->text(), u"четири"_s);
    m->box->setListModel(&m_words);
    m->box->clearItems();
    QCOMPARE(m->box->count(), 0);
    QCOMPARE(m->text(), QString());
}

void ComboListTest::textSetKeepsItsCaseInACaselessList()
{
    CaselessModel words;
    m->box->setListModel(&words);
    m->box->setCurrentText(u"ДУМА 77"_s);
    QCOMPARE(m->text(), u"ДУМА 77"_s);
    QCOMPARE(m->box->currentItem(), 0);
    m->box->setCurrentText(u"дума 77"_s);
    QCOMPARE(m->box->currentItem(), 77);
}

void ComboListTest::callerKeepsTheList()
{
    auto* owner = new QObject;
    QPointer<QStringListModel> words = new QStringListModel({u"дума"_s}, owner);
    m->box->setListModel(words);
    m->box->setListModel(&m_words);
    QVERIFY(words);
    m->box->setListModel(words);
    m.reset();
    QVERIFY(words);
    delete owner;
}

void ComboListTest::boxMayDieBeforeOrAfterTheList()
{
    WordModel words;
    {
        qt3::ComboBox box;
        box.setListModel(&words);
    }
    auto* list = new WordModel;
    qt3::ComboBox box;
    box.setListModel(list);
    delete list;
    QCOMPARE(box.count(), 0);
}

void ComboListTest::exchangesLeaveNothingBehind()
{
    WordModel words;
    m->box->setListModel(&words);
    m->box->showPopup();
    m->box->hidePopup();
    m->box->setListModel(nullptr);
    const auto objects = m->box->findChildren<QObject*>().size();
    for (int i = 0; i < 20; ++i) {
        auto more = std::make_unique<WordModel>();
        m->box->setListModel(&words);
        m->box->setListModel(more.get());
        more.reset();
        m->box->setItems({u"едно"_s});
        m->box->setListModel(nullptr);
    }
    QCOMPARE(m->box->findChildren<QObject*>().size(), objects);
    m->box->showPopup();
    QVERIFY(m->box->view()->selectionModel() != nullptr);
    m->box->hidePopup();
}

QTEST_MAIN(ComboListTest)
#include "combo_list_test.moc"
