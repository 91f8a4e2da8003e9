#include "chapter_view.h"

#include <QAbstractTextDocumentLayout>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>
#include <QTextBlock>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

const QString links =
    u"<p><a name=\"gotoChapter\" href=\"0\">&lt;&lt;&nbsp;Предишна глава</a> "
    "<a name=\"gotoChapter\" href=\"0\">1</a> <a name=\"gotoChapter\" href=\"17\">18</a> </p>\n"_s;

QString verse(int number, const QString& text = u"дума"_s)
{
    return u"<p><a name=\"%1\">[%1] "_s.arg(number) + text + u"</a></p>\n"_s;
}

QString chapter(int verses)
{
    QString html;
    for (int number = 1; number <= verses; ++number)
        html += verse(number);
    return html;
}

} // namespace

class ChapterViewTest : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void oneParagraphAVerse();
    void paragraphPastTheEndIsUnknown();
    void markupInAVerseStaysInsideIt_data();
    void markupInAVerseStaysInsideIt();
    void sameTextAgainChangesNothing();
    void anotherTextStartsAtItsTop();
    void centredParagraphIsInTheMiddle();
    void centringKeepsToTheText();
    void centringWhileHiddenHappensWhenShown();
    void centringBelongsToTheFirstShowOnly();
    void clickTellsNameAndHref();
    void clickAnywhereInTheLinkTellsTheName();
    void clickOnTheEndOfALinkTellsThatLink();
    void clickInAScrolledTextTellsTheLinkThere();
    void tabAndReturnTellTheSame();
    void linkWithoutNameHasNullName();
    void neighbouringLinksKeepTheirNames();
    void nameOnlyAnchorIsNoLink();
    void clickMayReplaceTheText();
    void nothingElseNavigates();

private:
    void clickOn(int position)
    {
        QTextCursor cursor(m_view->document());
        cursor.setPosition(position);
        QPoint point = m_view->cursorRect(cursor).center() + QPoint(3, 0);
        QTest::mouseClick(m_view->viewport(), Qt::LeftButton, {}, point);
    }
    int positionOf(const QString& text) const { return m_view->document()->find(text).selectionStart(); }
    int scrolled() const { return m_view->verticalScrollBar()->value(); }
    QStringList taken()
    {
        const QList<QVariant> arguments = m_spy->isEmpty() ? QList<QVariant>() : m_spy->takeFirst();
        return {arguments.value(0).toString(), arguments.value(1).toString()};
    }

    std::unique_ptr<QWidget> m_window;
    qt3::ChapterView* m_view = nullptr;
    std::unique_ptr<QSignalSpy> m_spy;
};

void ChapterViewTest::init()
{
    m_window = std::make_unique<QWidget>();
    auto* layout = new QVBoxLayout(m_window.get());
    layout->addWidget(m_view = new qt3::ChapterView);
    m_spy = std::make_unique<QSignalSpy>(m_view, &qt3::ChapterView::anchorClickedNamed);
    m_window->resize(500, 400);
    m_window->show();
    m_window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
}

void ChapterViewTest::cleanup()
{
    m_spy.reset();
    m_window.reset();
}

void ChapterViewTest::oneParagraphAVerse()
{
    m_view->setChapter(links + chapter(5) + links);
    QCOMPARE(m_view->document()->blockCount(), 7);
    QVERIFY(m_view->document()->findBlockByNumber(3).text().startsWith(u"[3] дума"));
    for (int n = 1; n < 7; ++n)
        QVERIFY(m_view->paragraphTop(n) > m_view->paragraphTop(n - 1));
}

void ChapterViewTest::paragraphPastTheEndIsUnknown()
{
    m_view->setChapter(chapter(5));
    QVERIFY(m_view->paragraphTop(4) > 0);
    QCOMPARE(m_view->paragraphTop(5), -1);
    QCOMPARE(m_view->paragraphTop(-1), -1);
}

void ChapterViewTest::markupInAVerseStaysInsideIt_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("less than") << u"a < b and c"_s;
    QTest::newRow("unclosed") << u"a<b"_s;
    QTest::newRow("ampersand") << u"a & b &amp; c &lt; d"_s;
    QTest::newRow("line break") << u"a<br>b"_s;
    QTest::newRow("unknown tag") << u"a<kedrin>b"_s;
    QTest::newRow("percent") << u"%1 %2 %99"_s;
}

void ChapterViewTest::markupInAVerseStaysInsideIt()
{
    QFETCH(QString, text);
    m_view->setChapter(verse(1) + verse(2, text) + verse(3));
    QCOMPARE(m_view->document()->blockCount(), 3);
    QVERIFY(m_view->document()->findBlockByNumber(1).text().startsWith(u"[2] "));
    QVERIFY(m_view->document()->findBlockByNumber(2).text().startsWith(u"[3] дума"));
}

void ChapterViewTest::sameTextAgainChangesNothing()
{
    m_view->setChapter(chapter(100));
    m_view->verticalScrollBar()->setValue(500);
    const QSignalSpy spy(m_view, &QTextEdit::textChanged);
    m_view->setChapter(chapter(100));
    QCOMPARE(spy.count(), 0);
    QCOMPARE(scrolled(), 500);
}

void ChapterViewTest::anotherTextStartsAtItsTop()
{
    m_view->setChapter(chapter(100));
    m_view->verticalScrollBar()->setValue(500);
    m_view->setChapter(chapter(99));
    QCOMPARE(scrolled(), 0);
}

void ChapterViewTest::centredParagraphIsInTheMiddle()
{
    m_view->setChapter(chapter(100));
    const int top = m_view->paragraphTop(50);
    m_view->centreOn(top);
    QCOMPARE(scrolled(), top - m_view->viewport()->height() / 2);
    m_view->verticalScrollBar()->setValue(m_view->verticalScrollBar()->maximum());
    m_view->centreOn(top);
    QCOMPARE(scrolled(), top - m_view->viewport()->height() / 2);
}

void ChapterViewTest::centringKeepsToTheText()
{
    m_view->setChapter(chapter(100));
    m_view->centreOn(m_view->paragraphTop(99));
    QCOMPARE(scrolled(), m_view->verticalScrollBar()->maximum());
    m_view->centreOn(m_view->paragraphTop(0));
    QCOMPARE(scrolled(), 0);
    m_view->centreOn(m_view->paragraphTop(50));
    m_view->centreOn(m_view->paragraphTop(1000));
    QCOMPARE(scrolled(), 0);
    m_view->setChapter(chapter(2));
    m_view->centreOn(m_view->paragraphTop(1));
    QCOMPARE(scrolled(), 0);
}

void ChapterViewTest::centringWhileHiddenHappensWhenShown()
{
    m_view->hide();
    m_view->setChapter(chapter(100));
    m_view->centreOn(m_view->paragraphTop(50));
    m_view->show();
    const int top = m_view->paragraphTop(50);
    QVERIFY(top > 500);
    QCOMPARE(scrolled(), top - m_view->viewport()->height() / 2);

    QWidget window;
    auto* layout = new QVBoxLayout(&window);
    auto* view = new qt3::ChapterView;
    layout->addWidget(view);
    view->setChapter(chapter(100));
    view->centreOn(view->paragraphTop(50));
    window.resize(300, 300);
    window.show();
    QCOMPARE(view->verticalScrollBar()->value(), view->paragraphTop(50) - view->viewport()->height() / 2);
}

void ChapterViewTest::centringBelongsToTheFirstShowOnly()
{
    m_view->hide();
    m_view->setChapter(chapter(100));
    m_view->centreOn(m_view->paragraphTop(50));
    m_view->show();
    m_view->verticalScrollBar()->setValue(7);
    m_view->hide();
    m_view->show();
    QCOMPARE(scrolled(), 7);
}

void ChapterViewTest::clickTellsNameAndHref()
{
    m_view->setChapter(links + chapter(3));
    clickOn(positionOf(u"18"_s));
    QCOMPARE(m_spy->count(), 1);
    QCOMPARE(taken(), QStringList({u"gotoChapter"_s, u"17"_s}));
}

void ChapterViewTest::clickAnywhereInTheLinkTellsTheName()
{
    m_view->setChapter(links + chapter(3));
    clickOn(positionOf(u"глава"_s) + 2);
    QCOMPARE(m_spy->count(), 1);
    QCOMPARE(taken(), QStringList({u"gotoChapter"_s, u"0"_s}));
}

void ChapterViewTest::clickOnTheEndOfALinkTellsThatLink()
{
    m_view->setChapter(links + chapter(3));
    QTextCursor behind(m_view->document());
    behind.setPosition(positionOf(u"18"_s) + 2);
    QTest::mouseClick(m_view->viewport(), Qt::LeftButton, {},
                      m_view->cursorRect(behind).center() - QPoint(2, 0));
    QCOMPARE(m_spy->count(), 1);
    QCOMPARE(taken(), QStringList({u"gotoChapter"_s, u"17"_s}));
}

void ChapterViewTest::clickInAScrolledTextTellsTheLinkThere()
{
    m_view->setChapter(links + chapter(100) + u"<p><a name=\"gotoChapter\" href=\"42\">края</a></p>"_s);
    m_view->centreOn(m_view->paragraphTop(101));
    QVERIFY(scrolled() > 100);
    clickOn(positionOf(u"края"_s));
    QCOMPARE(taken(), QStringList({u"gotoChapter"_s, u"42"_s}));
}

void ChapterViewTest::tabAndReturnTellTheSame()
{
    m_view->setChapter(links + chapter(3));
    m_view->setFocus();
    for (const QString& href : {u"0"_s, u"0"_s, u"17"_s}) {
        QTest::keyClick(m_view, Qt::Key_Tab);
        QTest::keyClick(m_view, Qt::Key_Return);
        QCOMPARE(m_spy->count(), 1);
        QCOMPARE(taken(), QStringList({u"gotoChapter"_s, href}));
    }
}

void ChapterViewTest::linkWithoutNameHasNullName()
{
    m_view->setChapter(u"<p><a name=\"1\">[1] виж <a href=\"http://example.org/a b\">там</a> и</a></p>"_s);
    clickOn(positionOf(u"там"_s));
    QCOMPARE(m_spy->count(), 1);
    QVERIFY(m_spy->at(0).at(0).toString().isNull());
    QCOMPARE(m_spy->at(0).at(1).toString(), u"http://example.org/a b"_s);
}

void ChapterViewTest::neighbouringLinksKeepTheirNames()
{
    m_view->setChapter(u"<p><a name=\"a\" href=\"1\">едно</a><a name=\"b\" href=\"2\">две</a>"
                       "<a href=\"3\">три</a></p>"_s);
    clickOn(positionOf(u"две"_s) + 1);
    QCOMPARE(taken(), QStringList({u"b"_s, u"2"_s}));
    clickOn(positionOf(u"три"_s) + 1);
    QCOMPARE(taken(), QStringList({QString(), u"3"_s}));
    clickOn(positionOf(u"едно"_s) + 1);
    QCOMPARE(taken(), QStringList({u"a"_s, u"1"_s}));
}

void ChapterViewTest::nameOnlyAnchorIsNoLink()
{
    m_view->setChapter(chapter(3));
    clickOn(positionOf(u"дума"_s));
    QCOMPARE(m_spy->count(), 0);
    QVERIFY(!m_view->document()->findBlockByNumber(0).begin().fragment().charFormat().fontUnderline());
}

void ChapterViewTest::clickMayReplaceTheText()
{
    m_view->setChapter(links + chapter(3));
    connect(m_view, &qt3::ChapterView::anchorClickedNamed, this, [this] { m_view->setChapter(chapter(2)); });
    clickOn(positionOf(u"18"_s));
    QCOMPARE(m_view->document()->blockCount(), 2);
}

void ChapterViewTest::nothingElseNavigates()
{
    m_view->setChapter(links + chapter(3));
    const QString shown = m_view->toHtml();
    const QSignalSpy spy(m_view, &QTextBrowser::sourceChanged);
    m_view->setSource(QUrl(u"qrc:/nowhere.html"_s));
    m_view->reload();
    m_view->home();
    m_view->backward();
    for (const Qt::Key key : {Qt::Key_Backspace, Qt::Key_F5})
        QTest::keyClick(m_view, key);
    for (const Qt::Key key : {Qt::Key_Left, Qt::Key_Right, Qt::Key_Up})
        QTest::keyClick(m_view, key, Qt::AltModifier);
    clickOn(positionOf(u"18"_s));
    QCOMPARE(m_view->toHtml(), shown);
    QCOMPARE(spy.count(), 0);
    QVERIFY(m_view->source().isEmpty());
}

QTEST_MAIN(ChapterViewTest)
#include "chapter_view_test.moc"
