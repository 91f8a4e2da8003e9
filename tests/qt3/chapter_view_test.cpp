#include "chapter_fixture.h"

#include <QSignalSpy>
#include <QTextBlock>

using namespace Qt::StringLiterals;

namespace {

/// 100 verses that need more lines in a narrower view.
QString longChapter()
{
    QString html;
    for (int number = 1; number <= 100; ++number)
        html += u"<p>"_s + u"дума "_s.repeated(30) + u"</p>\n"_s;
    return html;
}

} // namespace

class ChapterViewTest : public QObject, private ChapterFixture
{
    Q_OBJECT

private slots:
    void init() { start(); }
    void cleanup() { end(); }

    void oneParagraphAVerse();
    void paragraphPastTheEndIsUnknown();
    void markupInAVerseStaysInsideIt_data();
    void markupInAVerseStaysInsideIt();
    void sameTextAgainChangesNothing();
    void anotherTextStartsAtItsTop();
    void scrollBarIsThereWhereverTheTextNeedsIt();
    void centredParagraphIsInTheMiddle();
    void centringKeepsToTheText();
    void centringWhileHiddenHappensWhenShown();
    void centringBelongsToTheFirstShowOnly();
    void centredParagraphStaysThroughAnotherWidth();
    void centredParagraphStaysThroughAnotherFont();
    void readerWhoHasScrolledIsLeftAlone();
    void linksHaveTheColourOfThePalette();
};

void ChapterViewTest::oneParagraphAVerse()
{
    m_view->setChapter(links() + chapter(5) + links());
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

/// And nowhere else, whatever was shown before. Among the heights are those at which a text fits only as long as there is no
/// scroll bar.
void ChapterViewTest::scrollBarIsThereWhereverTheTextNeedsIt()
{
    QTextBrowser plain;
    plain.show();
    int fitting = 0;
    int scrolling = 0;
    for (const int verses : {1, 3, 12}) {
        QString text;
        for (int words = 10; words < 10 + verses; ++words)
            text += u"<p>"_s + u"дума "_s.repeated(words) + u"</p>\n"_s;
        for (int height = 60; height < 800; height += 3) {
            m_window->resize(500, height);
            plain.resize(m_view->size());
            for (const QString& before : {longChapter(), QString()}) {
                m_view->setChapter(before);
                m_view->setChapter(text);
                plain.setHtml(text);
                const bool isNeeded = plain.verticalScrollBar()->isVisible();
                QCOMPARE(m_view->verticalScrollBar()->isVisible(), isNeeded);
                QCOMPARE(m_view->verticalScrollBar()->maximum(), plain.verticalScrollBar()->maximum());
                QCOMPARE(m_view->viewport()->width(), plain.viewport()->width());
                QCOMPARE(scrolled(), 0);
                ++(isNeeded ? scrolling : fitting);
            }
        }
    }
    QVERIFY(fitting > 100 && scrolling > 100);
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

void ChapterViewTest::centredParagraphStaysThroughAnotherWidth()
{
    m_view->setChapter(longChapter());
    m_view->centreOn(m_view->paragraphTop(50));
    const int before = scrolled();
    m_window->resize(300, 400);
    QVERIFY(scrolled() != before);
    QCOMPARE(scrolled(), m_view->paragraphTop(50) - m_view->viewport()->height() / 2);
    m_window->resize(500, 400);
    QCOMPARE(scrolled(), before);
}

void ChapterViewTest::centredParagraphStaysThroughAnotherFont()
{
    m_view->setChapter(longChapter());
    m_view->centreOn(m_view->paragraphTop(50));
    const int before = scrolled();
    QFont large = m_window->font();
    large.setPointSize(3 * large.pointSize());
    m_window->setFont(large);
    QVERIFY(scrolled() > before);
    QCOMPARE(scrolled(), m_view->paragraphTop(50) - m_view->viewport()->height() / 2);
}

void ChapterViewTest::readerWhoHasScrolledIsLeftAlone()
{
    m_view->setChapter(longChapter());
    m_view->centreOn(m_view->paragraphTop(50));
    m_view->verticalScrollBar()->setValue(123);
    m_window->resize(300, 400);
    QCOMPARE(scrolled(), 123);

    m_view->centreOn(m_view->paragraphTop(50));
    m_view->setChapter(chapter(100)); // another text is shown from its top
    m_window->resize(500, 400);
    QCOMPARE(scrolled(), 0);
}

void ChapterViewTest::linksHaveTheColourOfThePalette()
{
    const auto linkColour = [&] {
        return m_view->document()->firstBlock().begin().fragment().charFormat().foreground().color();
    };
    m_view->setChapter(u"<p><a href='1'>глава</a></p>"_s + longChapter());
    m_view->verticalScrollBar()->setValue(70);
    const QPalette before = QApplication::palette();
    for (const QColor colour : {QColor(110, 170, 255), QColor(0, 0, 160)}) {
        QPalette palette = before;
        palette.setColor(QPalette::Link, colour);
        QApplication::setPalette(palette);
        QCoreApplication::processEvents();
        QCOMPARE(linkColour(), colour);
        QCOMPARE(m_view->verticalScrollBar()->value(), 70);
    }
    QApplication::setPalette(before);
}

QTEST_MAIN(ChapterViewTest)
#include "chapter_view_test.moc"
