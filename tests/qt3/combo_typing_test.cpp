#include "combo_fixture.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QInputMethodEvent>

using namespace Qt::StringLiterals;
using Return = qt3::ComboBox::Return;

namespace {

const QStringList gospels = {u"Матей"_s, u"Марк"_s, u"Лука"_s, u"Йоан"_s};

} // namespace

class ComboTypingTest : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { m.reset(); }

    void typingCompletesIgnoringCase();
    void typedLettersStayWhereTheBoxIsToKeepThem();
    void completionStartsAtTheCurrentItemAndWraps();
    void itemThatIsTheTextWinsOverALongerOne();
    void completionLeavesTheCurrentItem();
    void typingOnNarrowsTheCompletion();
    void deletingDoesNotComplete();
    void typingInsideTheTextDoesNotComplete();
    void pastingDoesNotComplete();
    void inputMethodCompletes();
    void textThatBeginsNoItemStaysAsTyped();
    void keysToTheLineEditWorkAsWell();
    void returnGoesToTheItem_data();
    void returnGoesToTheItem();
    void returnOnTextThatIsNoItemDoesNothing();
    void returnGivesTheTextAsItStands_data();
    void returnGivesTheTextAsItStands();
    void boxShowsItsCurrentItemAgainWhenTheFocusLeaves();
    void boxKeepsItsTextWhenAPopupOpens();
    void arrowsStartAtTheCompletedItem();
    void arrowsFromTheLastCompletedItemDoNothing();

private:
    void typeInstead(const QString& text)
    {
        m->box->lineEdit()->selectAll();
        m->type(text);
    }
    QString selected() const { return m->box->lineEdit()->selectedText(); }

    std::unique_ptr<ComboFixture> m;
};

void ComboTypingTest::init()
{
    m = std::make_unique<ComboFixture>();
    QVERIFY(m->isShown);
    m->box->setItems(gospels);
}

void ComboTypingTest::typingCompletesIgnoringCase()
{
    typeInstead(u"лу"_s);
    QCOMPARE(m->text(), u"Лука"_s);
    QCOMPARE(selected(), u"ка"_s);
    QCOMPARE(m->box->lineEdit()->cursorPosition(), 2);
    QCOMPARE(m->takeTold(), QStringList());
}

void ComboTypingTest::typedLettersStayWhereTheBoxIsToKeepThem()
{
    bool keeps = true;
    m->box->setKeepsTypedLetters([&] { return keeps; });
    typeInstead(u"лУ"_s);
    QCOMPARE(m->text(), u"лУка"_s);
    QCOMPARE(selected(), u"ка"_s);
    m->type(u"КА"_s); // an item except for its case
    QCOMPARE(m->text(), u"лУКА"_s);
    QCOMPARE(selected(), QString());
    m->type(u"!"_s);
    QCOMPARE(m->text(), u"лУКА!"_s);
    keeps = false;
    typeInstead(u"лУ"_s);
    QCOMPARE(m->text(), u"Лука"_s);
}

void ComboTypingTest::completionStartsAtTheCurrentItemAndWraps()
{
    m->box->setCurrentItem(1);
    typeInstead(u"М"_s);
    QCOMPARE(m->text(), u"Марк"_s);
    m->box->setCurrentItem(2);
    typeInstead(u"М"_s);
    QCOMPARE(m->text(), u"Матей"_s);
}

void ComboTypingTest::itemThatIsTheTextWinsOverALongerOne()
{
    QStringList numbers;
    for (int number = 1; number <= 50; ++number)
        numbers.append(QString::number(number));
    m->box->setItems(numbers);
    m->box->setCurrentItem(10);
    typeInstead(u"2"_s);
    QCOMPARE(m->text(), u"2"_s);
    m->type(u"3"_s);
    QTest::keyClick(m->box, Qt::Key_Return);
    QCOMPARE(m->takeTold(), QStringList({u"item 22"_s, u"text 23"_s}));
}

void ComboTypingTest::completionLeavesTheCurrentItem()
{
    const QSignalSpy index(m->box, &QComboBox::currentIndexChanged);
    typeInstead(u"Й"_s);
    QCOMPARE(m->text(), u"Йоан"_s);
    QCOMPARE(m->box->currentItem(), 0);
    QCOMPARE(index.count(), 0);
}

void ComboTypingTest::typingOnNarrowsTheCompletion()
{
    typeInstead(u"м"_s);
    QCOMPARE(m->text(), u"Матей"_s);
    m->type(u"а"_s);
    QCOMPARE(m->text(), u"Матей"_s);
    QCOMPARE(selected(), u"тей"_s);
    m->type(u"р"_s);
    QCOMPARE(m->text(), u"Марк"_s);
    QCOMPARE(selected(), u"к"_s);
}

void ComboTypingTest::deletingDoesNotComplete()
{
    typeInstead(u"Лу"_s);
    QTest::keyClick(m->box, Qt::Key_Backspace);
    QCOMPARE(m->text(), u"Лу"_s);
    QTest::keyClick(m->box, Qt::Key_Backspace);
    QCOMPARE(m->text(), u"Л"_s);
    m->type(u"у"_s);
    QTest::keyClick(m->box, Qt::Key_Delete);
    QCOMPARE(m->text(), u"Лу"_s);
}

void ComboTypingTest::typingInsideTheTextDoesNotComplete()
{
    m->box->setEditText(u"у"_s);
    m->box->lineEdit()->setCursorPosition(0);
    m->type(u"Л"_s);
    QCOMPARE(m->text(), u"Лу"_s);
}

void ComboTypingTest::pastingDoesNotComplete()
{
    QGuiApplication::clipboard()->setText(u"Лу"_s);
    m->box->lineEdit()->selectAll();
    QTest::keyClick(m->box, Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(m->text(), u"Лу"_s);
}

void ComboTypingTest::inputMethodCompletes()
{
    m->box->lineEdit()->selectAll();
    QInputMethodEvent event;
    event.setCommitString(u"Л"_s);
    QApplication::sendEvent(m->box, &event);
    QCOMPARE(m->text(), u"Лука"_s);
    QCOMPARE(selected(), u"ука"_s);
}

void ComboTypingTest::textThatBeginsNoItemStaysAsTyped()
{
    typeInstead(u"лог"_s);
    QCOMPARE(m->text(), u"Лог"_s);
    m->box->clearItems();
    m->type(u"лук"_s);
    QCOMPARE(m->text(), u"лук"_s);
}

void ComboTypingTest::keysToTheLineEditWorkAsWell()
{
    m->box->setItems({u"Acts"_s, u"Romans"_s, u"Jude"_s});
    m->box->lineEdit()->selectAll();
    QTest::keyClicks(m->box->lineEdit(), u"r"_s);
    QCOMPARE(m->text(), u"Romans"_s);
    QTest::keyClick(m->box->lineEdit(), Qt::Key_Return);
    QCOMPARE(m->takeTold(), QStringList({u"item 1"_s, u"text Romans"_s}));
    QTest::keyClick(m->box->lineEdit(), Qt::Key_Down);
    QCOMPARE(m->takeTold(), QStringList({u"item 2"_s, u"text Jude"_s}));
}

void ComboTypingTest::returnGoesToTheItem_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<int>("item");
    QTest::newRow("typed") << u"Лука"_s << 2;
    QTest::newRow("typed in another case") << u"йОАН"_s << 3;
    QTest::newRow("completed") << u"й"_s << 3;
    QTest::newRow("the current one") << u"Матей"_s << 0;
}

void ComboTypingTest::returnGoesToTheItem()
{
    QFETCH(QString, typed);
    QFETCH(int, item);
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter}) {
        m->box->setCurrentItem(0);
        typeInstead(typed);
        QTest::keyClick(m->box, key);
        QCOMPARE(m->takeTold(), QStringList({u"item %1"_s.arg(item), u"text "_s + gospels.at(item)}));
        QCOMPARE(m->box->currentItem(), item);
        QCOMPARE(m->text(), gospels.at(item));
    }
}

void ComboTypingTest::returnOnTextThatIsNoItemDoesNothing()
{
    for (const QString& text : {u"Лу"_s, u"Деяния"_s, QString()}) {
        m->box->setEditText(text);
        QTest::keyClick(m->box, Qt::Key_Return);
        QCOMPARE(m->takeTold(), QStringList());
        QCOMPARE(m->box->currentItem(), 0);
        QCOMPARE(m->text(), text);
    }
    m->box->clearItems();
    QTest::keyClick(m->box, Qt::Key_Return);
    QCOMPARE(m->takeTold(), QStringList());
    QCOMPARE(m->box->count(), 0);
}

void ComboTypingTest::returnGivesTheTextAsItStands_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("an item") << u"Лука"_s;
    QTest::newRow("an item in another case") << u"лука"_s;
    QTest::newRow("the current item") << u"Матей"_s;
    QTest::newRow("no item") << u"Бог е"_s;
    QTest::newRow("empty") << QString();
}

void ComboTypingTest::returnGivesTheTextAsItStands()
{
    QFETCH(QString, text);
    m->box->setReturn(Return::givesText);
    m->box->setEditText(text);
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter}) {
        QTest::keyClick(m->box, key);
        QCOMPARE(m->takeTold(), QStringList({u"text "_s + text}));
        QCOMPARE(m->box->currentItem(), 0);
        QCOMPARE(m->text(), text);
    }
    QCOMPARE(m->box->count(), 4);
}

void ComboTypingTest::boxShowsItsCurrentItemAgainWhenTheFocusLeaves()
{
    m->box->setCurrentItem(1);
    typeInstead(u"Й"_s);
    m->other->setFocus(Qt::MouseFocusReason);
    QCOMPARE(m->text(), u"Марк"_s);
    QCOMPARE(m->box->currentItem(), 1);
    QCOMPARE(m->takeTold(), QStringList());
}

void ComboTypingTest::boxKeepsItsTextWhenAPopupOpens()
{
    for (const Qt::FocusReason reason : {Qt::PopupFocusReason, Qt::MenuBarFocusReason}) {
        typeInstead(u"Й"_s);
        QFocusEvent event(QEvent::FocusOut, reason);
        QApplication::sendEvent(m->box, &event);
        QCOMPARE(m->text(), u"Йоан"_s);
    }
}

void ComboTypingTest::arrowsStartAtTheCompletedItem()
{
    typeInstead(u"Лу"_s);
    QTest::keyClick(m->box, Qt::Key_Down);
    QCOMPARE(m->takeTold(), QStringList({u"item 3"_s, u"text Йоан"_s}));
    typeInstead(u"Лу"_s);
    QTest::keyClick(m->box, Qt::Key_Up);
    QCOMPARE(m->takeTold(), QStringList({u"item 1"_s, u"text Марк"_s}));
    m->box->setEditText(u"няма такова"_s);
    QTest::keyClick(m->box, Qt::Key_Down);
    QCOMPARE(m->takeTold(), QStringList({u"item 2"_s, u"text Лука"_s}));
}

void ComboTypingTest::arrowsFromTheLastCompletedItemDoNothing()
{
    typeInstead(u"Йо"_s);
    QTest::keyClick(m->box, Qt::Key_Down);
    QCOMPARE(m->takeTold(), QStringList());
    QCOMPARE(m->box->currentItem(), 0);
}

QTEST_MAIN(ComboTypingTest)
#include "combo_typing_test.moc"
