#include "chapter_view.h"
#include "combo_box.h"
#include "form_fixture.h"

#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>

using namespace window_test;

namespace {

void openOn(FormFixture& window)
{
    window.install("а", alphaModule());
    window.open();
}

/// How often a view reports a change when one chapter is set.
qsizetype changesOfOneRendering()
{
    qt3::ChapterView view;
    view.setChapter(QStringLiteral("<p>a</p>\n"));
    const QSignalSpy changes(&view, &QTextEdit::textChanged);
    view.setChapter(QStringLiteral("<p>b</p>\n"));
    return changes.size();
}

} // namespace

/// The chapter view after navigation: one rendering, the verse red and centred.
class ViewTest : public QObject
{
    Q_OBJECT

private slots:
    void choiceRendersOnce_data();
    void choiceRendersOnce();
    void currentVerseIsRedAndInTheMiddle_data();
    void currentVerseIsRedAndInTheMiddle();
    void lastVerseOfALongChapterScrollsToTheEnd();
    void movedViewComesBackWhenTheVerseIsChosenAgain();
    void versePastTheEndMarksNone();
    void firstChapterIsInTheMiddleAfterTheWindowIsShown();
};

void ViewTest::choiceRendersOnce_data()
{
    QTest::addColumn<int>("box");
    QTest::newRow("book") << 0;
    QTest::newRow("chapter") << 1;
    QTest::newRow("verse") << 2;
}

void ViewTest::choiceRendersOnce()
{
    FormFixture window;
    openOn(window);
    const BibleForm& form = window.form();
    window.pick(form.comboChapter, 20);
    window.pick(form.comboVerse, 25);
    QFETCH(int, box);
    qt3::ComboBox* const boxes[] = {form.comboBook, form.comboChapter, form.comboVerse};
    const QSignalSpy changes(form.textBrowser, &QTextEdit::textChanged);
    window.pick(boxes[box], 1);
    QCOMPARE(changes.size(), changesOfOneRendering());
}

void ViewTest::currentVerseIsRedAndInTheMiddle_data()
{
    QTest::addColumn<bool>("links");
    QTest::newRow("without links") << false;
    QTest::newRow("with links") << true;
}

void ViewTest::currentVerseIsRedAndInTheMiddle()
{
    FormFixture window;
    openOn(window);
    const BibleForm& form = window.form();
    QFETCH(bool, links);
    if (links)
        FormFixture::press(Qt::Key_F8);
    for (const int verse : {0, 15, 16, 30, 14}) {
        window.pick(form.comboVerse, verse);
        QCOMPARE(window.red(), QStringLiteral("[%1] Битие 1:%1").arg(verse + 1));
        QVERIFY(window.isCentred(verse + (links ? 1 : 0)));
    }
}

void ViewTest::lastVerseOfALongChapterScrollsToTheEnd()
{
    FormFixture window;
    openOn(window);
    const BibleForm& form = window.form();
    window.pick(form.comboBook, 2);
    window.pick(form.comboChapter, 4);
    window.pick(form.comboVerse, 175);
    QCOMPARE(window.red(), QStringLiteral("[176] Псалтир 5:176"));
    QVERIFY(window.isCentred(175));
}

void ViewTest::movedViewComesBackWhenTheVerseIsChosenAgain()
{
    FormFixture window;
    openOn(window);
    const BibleForm& form = window.form();
    window.pick(form.comboVerse, 20);
    form.textBrowser->verticalScrollBar()->triggerAction(QAbstractSlider::SliderToMinimum);
    QVERIFY(!window.isCentred(20));
    window.pick(form.comboVerse, 20);
    QVERIFY(window.isCentred(20));
}

void ViewTest::versePastTheEndMarksNone()
{
    FormFixture window;
    openOn(window);
    BibleForm& form = window.form();
    window.pick(form.comboVerse, 4);
    form.goToRef(Kedrin::Tolvo::CRef(0, 1, 31));
    QCOMPARE(window.page().constFirst(), QStringLiteral("[1] Битие 2:1"));
    QCOMPARE(window.page().size(), 31);
    QCOMPARE(window.red(), QString());
    QCOMPARE(window.place(), QStringLiteral("Битие 2 5")); // the verse box keeps its verse
    QVERIFY(window.takeBoxes().isEmpty());
}

void ViewTest::firstChapterIsInTheMiddleAfterTheWindowIsShown()
{
    FormFixture window;
    window.install("а", alphaModule());
    BibleForm form;
    form.goToRef(Kedrin::Tolvo::CRef(0, 0, 20)); // before the layout
    form.show();
    QVERIFY(QTest::qWaitForWindowExposed(&form));
    const auto red = QStringLiteral("[21] Битие 1:21");
    QTextCursor cursor = form.textBrowser->document()->find(red);
    cursor.setPosition(cursor.selectionStart());
    const int top = form.textBrowser->cursorRect(cursor).top();
    QVERIFY(qAbs(top - form.textBrowser->viewport()->height() / 2) < 30);
}

QTEST_MAIN(ViewTest)
#include "view_test.moc"
