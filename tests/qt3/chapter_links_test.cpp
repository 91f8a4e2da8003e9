#include "chapter_fixture.h"

#include <QSignalSpy>
#include <QTextBlock>

using namespace Qt::StringLiterals;

class ChapterLinksTest : public QObject, private ChapterFixture
{
    Q_OBJECT

private slots:
    void init()
    {
        start();
        m_spy = std::make_unique<QSignalSpy>(m_view, &qt3::ChapterView::anchorClickedNamed);
    }
    void cleanup()
    {
        m_spy.reset();
        end();
    }

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
    QStringList taken()
    {
        const QList<QVariant> arguments = m_spy->isEmpty() ? QList<QVariant>() : m_spy->takeFirst();
        return {arguments.value(0).toString(), arguments.value(1).toString()};
    }

    std::unique_ptr<QSignalSpy> m_spy;
};

void ChapterLinksTest::clickTellsNameAndHref()
{
    m_view->setChapter(links() + chapter(3));
    clickOn(positionOf(u"18"_s));
    QCOMPARE(m_spy->count(), 1);
    QCOMPARE(taken(), QStringList({u"gotoChapter"_s, u"17"_s}));
}

void ChapterLinksTest::clickAnywhereInTheLinkTellsTheName()
{
    m_view->setChapter(links() + chapter(3));
    clickOn(positionOf(u"глава"_s) + 2);
    QCOMPARE(m_spy->count(), 1);
    QCOMPARE(taken(), QStringList({u"gotoChapter"_s, u"0"_s}));
}

void ChapterLinksTest::clickOnTheEndOfALinkTellsThatLink()
{
    m_view->setChapter(u"<p>1 <a name=\"gotoChapter\" href=\"17\">Следваща глава</a></p>"_s + chapter(3));
    QTextCursor behind(m_view->document());
    behind.movePosition(QTextCursor::EndOfBlock);
    QTest::mouseClick(m_view->viewport(), Qt::LeftButton, {},
                      m_view->cursorRect(behind).center() - QPoint(2, 0));
    QCOMPARE(m_spy->count(), 1);
    QCOMPARE(taken(), QStringList({u"gotoChapter"_s, u"17"_s}));
}

void ChapterLinksTest::clickInAScrolledTextTellsTheLinkThere()
{
    QString html;
    for (int line = 0; line < 200; ++line)
        html += u"<a name=\"n%1\" href=\"%1\">глава %1</a><br>"_s.arg(line, 3, 10, QChar(u'0'));
    m_view->setChapter(u"<p>"_s + html + u"</p>"_s);
    m_view->verticalScrollBar()->setValue(m_view->verticalScrollBar()->maximum() / 2);
    clickOn(positionOf(u"глава 100"_s));
    QCOMPARE(taken(), QStringList({u"n100"_s, u"100"_s}));
}

void ChapterLinksTest::tabAndReturnTellTheSame()
{
    m_view->setChapter(links() + chapter(3));
    m_view->setFocus();
    for (const QString& href : {u"0"_s, u"0"_s, u"17"_s}) {
        QTest::keyClick(m_view, Qt::Key_Tab);
        QTest::keyClick(m_view, Qt::Key_Return);
        QCOMPARE(m_spy->count(), 1);
        QCOMPARE(taken(), QStringList({u"gotoChapter"_s, href}));
    }
}

void ChapterLinksTest::linkWithoutNameHasNullName()
{
    m_view->setChapter(u"<p><a name=\"1\">[1] виж <a href=\"http://example.org/a b\">там</a> и</a></p>"_s);
    clickOn(positionOf(u"там"_s));
    QCOMPARE(m_spy->count(), 1);
    QVERIFY(m_spy->at(0).at(0).toString().isNull());
    QCOMPARE(m_spy->at(0).at(1).toString(), u"http://example.org/a b"_s);
}

void ChapterLinksTest::neighbouringLinksKeepTheirNames()
{
    m_view->setChapter(u"<p><a name=\"a\" href=\"1\">едно</a><a name=\"b\" href=\"2\">две</a>"
                       "<a href=\"3\">три</a></p>"_s);
    clickOn(positionOf(u"две"_s) + 1);
    QCOMPARE(taken(), QStringList({u"b"_s, u"2"_s}));
    clickOn(positionOf(u"три"_s) + 1);
    QCOMPARE(taken(), QStringList({QString(), u"3"_s}));
    clickOn(positionOf(u"едно"_s) + 1);
    QCOMPARE(taken(), QStringList({u"a"_s, u"1"_s}));

    m_view->setChapter(u"<p><a name=\"a\" href=\"1\">едно</a><a name=\"b\" href=\"1\">две</a></p>"_s);
    clickOn(positionOf(u"две"_s) + 1);
    QCOMPARE(taken(), QStringList({u"b"_s, u"1"_s}));
}

void ChapterLinksTest::nameOnlyAnchorIsNoLink()
{
    m_view->setChapter(chapter(3));
    clickOn(positionOf(u"дума"_s));
    QCOMPARE(m_spy->count(), 0);
    QVERIFY(!m_view->document()->findBlockByNumber(0).begin().fragment().charFormat().fontUnderline());
}

void ChapterLinksTest::clickMayReplaceTheText()
{
    m_view->setChapter(links() + chapter(3));
    connect(m_view, &qt3::ChapterView::anchorClickedNamed, this, [this] { m_view->setChapter(chapter(2)); });
    clickOn(positionOf(u"18"_s));
    QCOMPARE(m_view->document()->blockCount(), 2);
}

void ChapterLinksTest::nothingElseNavigates()
{
    m_view->setChapter(links() + chapter(3));
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
    QVERIFY(!m_view->openLinks());
    QCOMPARE(spy.count(), 0);
    QVERIFY(m_view->source().isEmpty());
}

QTEST_MAIN(ChapterLinksTest)
#include "chapter_links_test.moc"
