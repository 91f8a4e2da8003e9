#include "form_fixture.h"

#include <QScrollBar>
#include <QTest>

using namespace window_test;
using test_support::makeModule;
using test_support::plainBook;

namespace {

void searchForPart(const FormFixture& window, const char* text)
{
    window.form().checkPartialWord->setChecked(true);
    FormFixture::typeInto(window.form().comboSearchText, QString::fromUtf8(text));
    FormFixture::press(Qt::Key_Delete); // the completed part
    FormFixture::press(Qt::Key_Return);
}

/// One book with chapters of 40, 3 and 60 verses; longer than the view is high.
void openOnPsalms(FormFixture& window)
{
    window.install("а", makeModule("А", {plainBook(18, "Псалтир", {40, 3, 60})}));
    window.open();
}

} // namespace

/// The position after choosing a hit or a link, the first time and again.
class HitPlacesTest : public QObject
{
    Q_OBJECT

private slots:
    void hitInALongerChapterIsInTheVerseBox();
    void hitInAShorterChapterIsInTheVerseBox();
    void linkIntoAnotherChapterRefillsTheVerseBox();
    void hitClickedAgainGoesThereAgain();
    void clickedHitIsShownAgainAfterScrolling();
    void enterOnTheHitGoesThereAgain_data();
    void enterOnTheHitGoesThereAgain();
    void widestRowsOfHitsOfSeveralBooks();
};

void HitPlacesTest::hitInALongerChapterIsInTheVerseBox()
{
    FormFixture window;
    openOnPsalms(window);
    const BibleForm& form = window.form();
    searchForPart(window, "3:60");
    window.clickHit(0);
    QCOMPARE(window.place(), QStringLiteral("Псалтир 3 60"));
    QCOMPARE(form.comboVerse->count(), 60);
    QCOMPARE(form.comboVerse->currentItem(), 59);
    QCOMPARE(window.red(), QStringLiteral("[60] Псалтир 3:60"));
}

void HitPlacesTest::hitInAShorterChapterIsInTheVerseBox()
{
    FormFixture window;
    openOnPsalms(window);
    searchForPart(window, "2:3");
    window.clickHit(0);
    QCOMPARE(window.place(), QStringLiteral("Псалтир 2 3"));
    QCOMPARE(window.offered(window.form().comboVerse), QStringLiteral("1 2 3").split(u' '));
}

void HitPlacesTest::linkIntoAnotherChapterRefillsTheVerseBox()
{
    FormFixture window;
    openOnPsalms(window);
    FormFixture::press(Qt::Key_F8);
    window.clickLink(2); // 1, 2, 3, next
    QCOMPARE(window.place(), QStringLiteral("Псалтир 3 1"));
    QCOMPARE(window.form().comboVerse->count(), 60);
    window.clickLink(2); // previous, 1, 2, 3
    QCOMPARE(window.place(), QStringLiteral("Псалтир 2 1"));
    QCOMPARE(window.form().comboVerse->count(), 3);
}

void HitPlacesTest::hitClickedAgainGoesThereAgain()
{
    FormFixture window;
    openOnPsalms(window);
    searchForPart(window, "3:60");
    window.clickHit(0);
    window.pick(window.form().comboChapter, 0);
    QCOMPARE(window.place(), QStringLiteral("Псалтир 1 40"));
    window.clickHit(0);
    QCOMPARE(window.place(), QStringLiteral("Псалтир 3 60"));
    QCOMPARE(window.red(), QStringLiteral("[60] Псалтир 3:60"));
}

void HitPlacesTest::clickedHitIsShownAgainAfterScrolling()
{
    FormFixture window;
    openOnPsalms(window);
    searchForPart(window, "3:30");
    window.clickHit(0);
    QVERIFY(window.isCentred(29));
    window.form().textBrowser->verticalScrollBar()->setValue(0);
    window.clickHit(0);
    QVERIFY(window.isCentred(29));
}

void HitPlacesTest::enterOnTheHitGoesThereAgain_data()
{
    QTest::addColumn<Qt::Key>("key");
    QTest::newRow("Return") << Qt::Key_Return;
    QTest::newRow("Enter") << Qt::Key_Enter;
}

void HitPlacesTest::enterOnTheHitGoesThereAgain()
{
    QFETCH(Qt::Key, key);
    FormFixture window;
    openOnPsalms(window);
    searchForPart(window, "3:5"); // 3:5, 3:50, 3:51, ...
    window.clickHit(1);
    QCOMPARE(window.place(), QStringLiteral("Псалтир 3 50"));
    window.pick(window.form().comboChapter, 0);
    window.form().listSearchResults->setFocus(Qt::TabFocusReason);
    FormFixture::press(key);
    QCOMPARE(window.place(), QStringLiteral("Псалтир 3 50"));
}

/// Each book has its own abbreviation: the longest row of each has to fit, not only that of the first.
void HitPlacesTest::widestRowsOfHitsOfSeveralBooks()
{
    FormFixture window;
    window.install("а", makeModule("А", {plainBook(0, "iii", {3, 12}), plainBook(18, "ЩЩЩ", {3}),
                                         plainBook(19, "iij", {3})}));
    BibleForm& form = window.open();
    searchForPart(window, ":");
    QCOMPARE(window.rows().size(), 3 + 12 + 3 + 3);
    QFont large = form.font();
    large.setPointSize(24);
    form.setFont(large);
    QCoreApplication::processEvents();
    const QFontMetrics painted(form.listSearchResults->paintedFont());
    for (const QString& row : window.rows())
        QVERIFY2(painted.horizontalAdvance(row) < form.listSearchResults->viewport()->width(),
                 row.toUtf8().constData());
}

QTEST_MAIN(HitPlacesTest)
#include "hit_places_test.moc"
