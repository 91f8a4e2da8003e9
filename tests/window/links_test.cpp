#include "chapter_view.h"
#include "combo_box.h"
#include "form_fixture.h"

#include <QAction>
#include <QImage>
#include <QTest>

#include <sys/inotify.h>
#include <unistd.h>

using namespace window_test;

namespace {

void openWithLinks(FormFixture& window)
{
    window.install("а", alphaModule());
    window.open();
    FormFixture::press(Qt::Key_F8);
}

/// Detects when a file is opened.
class OpenWatch
{
public:
    explicit OpenWatch(const std::string& path) : m_watch(::inotify_init1(IN_NONBLOCK))
    {
        if (::inotify_add_watch(m_watch, path.c_str(), IN_OPEN) < 0)
            qFatal("cannot watch %s", path.c_str());
    }
    ~OpenWatch() { ::close(m_watch); }
    OpenWatch(const OpenWatch&) = delete;
    OpenWatch& operator=(const OpenWatch&) = delete;

    bool wasOpened() const
    {
        char event[4096];
        return ::read(m_watch, event, sizeof event) > 0;
    }

private:
    int m_watch;
};

} // namespace

/// The links to chapters, and untrusted markup.
class LinksTest : public QObject
{
    Q_OBJECT

private slots:
    void keyTogglesTheLinksAndKeepsThePlace();
    void menuTogglesTheLinks();
    void firstChapterHasNoLinkBack();
    void lastChapterHasNoLinkOn();
    void onlyChapterHasNeither();
    void clickOnANumberShowsThatChapter();
    void clickOnPreviousAndNextMoves();
    void lowerLineOfLinksWorksToo();
    void tabAndReturnFollowALink();
    void clickOnAVerseDoesNothing();
    void linksAreUnderlinedAndVersesAreNot();
    void markupReadsNoFile();
    void foreignLinkLeadsNowhere();
    void hrefThatIsNoNumberIsTheFirstChapter();
    void versesStayApartWhateverTheyHold();
};

void LinksTest::keyTogglesTheLinksAndKeepsThePlace()
{
    FormFixture window;
    window.install("а", alphaModule());
    const BibleForm& form = window.open();
    window.pick(form.comboChapter, 3);
    window.pick(form.comboVerse, 14);
    QVERIFY(window.links().isEmpty());
    FormFixture::press(Qt::Key_F8);
    QCOMPARE(window.links().size(), 2 * 52);
    QCOMPARE(window.place(), QStringLiteral("Битие 4 15"));
    QCOMPARE(window.red(), QStringLiteral("[15] Битие 4:15"));
    QVERIFY(window.isCentred(15));
    FormFixture::press(Qt::Key_F8);
    QVERIFY(window.links().isEmpty());
    QCOMPARE(window.red(), QStringLiteral("[15] Битие 4:15"));
    QVERIFY(window.isCentred(14));
}

void LinksTest::menuTogglesTheLinks()
{
    FormFixture window;
    window.install("а", alphaModule());
    const BibleForm& form = window.open();
    window.chooseInMenu(form.menuView, form.viewChapterHyperLinks);
    QVERIFY(form.viewChapterHyperLinks->isChecked());
    QVERIFY(!window.links().isEmpty());
    window.chooseInMenu(form.menuView, form.viewChapterHyperLinks);
    QVERIFY(window.links().isEmpty());
}

void LinksTest::firstChapterHasNoLinkBack()
{
    FormFixture window;
    openWithLinks(window);
    window.pick(window.form().comboBook, 1);
    const QStringList once = {QStringLiteral("1"), QStringLiteral("2"), QStringLiteral("3"),
                              QStringLiteral("4"), QStringLiteral("Следваща глава >>")};
    QCOMPARE(window.links(), once + once);
}

void LinksTest::lastChapterHasNoLinkOn()
{
    FormFixture window;
    openWithLinks(window);
    window.pick(window.form().comboBook, 1);
    window.pick(window.form().comboChapter, 3);
    const QStringList once = {QStringLiteral("<< Предишна глава"), QStringLiteral("1"), QStringLiteral("2"),
                              QStringLiteral("3"), QStringLiteral("4")};
    QCOMPARE(window.links(), once + once);
}

void LinksTest::onlyChapterHasNeither()
{
    FormFixture window;
    window.install("а", moduleOfVerses({"само един"}));
    window.open();
    FormFixture::press(Qt::Key_F8);
    QCOMPARE(window.links(), (QStringList{QStringLiteral("1"), QStringLiteral("1")}));
}

void LinksTest::clickOnANumberShowsThatChapter()
{
    FormFixture window;
    openWithLinks(window);
    window.pick(window.form().comboVerse, 20);
    window.clickLink(41);
    QCOMPARE(window.place(), QStringLiteral("Битие 42 1"));
    QCOMPARE(window.red(), QStringLiteral("[1] Битие 42:1"));
    QCOMPARE(window.form().comboVerse->currentIndex(), 0);
    window.clickLink(1 + 41); // the current chapter is a link as well
    QCOMPARE(window.place(), QStringLiteral("Битие 42 1"));
    QVERIFY(window.takeBoxes().isEmpty());
}

void LinksTest::clickOnPreviousAndNextMoves()
{
    FormFixture window;
    openWithLinks(window);
    window.pick(window.form().comboChapter, 9);
    window.clickLink(0);
    QCOMPARE(window.place(), QStringLiteral("Битие 9 1"));
    window.clickLink(51);
    QCOMPARE(window.place(), QStringLiteral("Битие 10 1"));
}

void LinksTest::lowerLineOfLinksWorksToo()
{
    FormFixture window;
    openWithLinks(window);
    window.clickLink(51 + 6);
    QCOMPARE(window.place(), QStringLiteral("Битие 7 1"));
}

void LinksTest::tabAndReturnFollowALink()
{
    FormFixture window;
    openWithLinks(window);
    window.form().textBrowser->setFocus(Qt::TabFocusReason);
    FormFixture::press(Qt::Key_Tab);
    FormFixture::press(Qt::Key_Tab);
    const QString chosen = window.form().textBrowser->textCursor().selectedText();
    FormFixture::press(Qt::Key_Return);
    QVERIFY2(!chosen.isEmpty(), "no link has the focus");
    QCOMPARE(window.form().comboChapter->currentText(), chosen);
    QCOMPARE(window.red(), QStringLiteral("[1] Битие %1:1").arg(chosen));
}

void LinksTest::clickOnAVerseDoesNothing()
{
    FormFixture window;
    openWithLinks(window);
    const BibleForm& form = window.form();
    const QStringList page = window.page();
    const QTextCursor verse = form.textBrowser->document()->find(QStringLiteral("Битие 1:3"));
    QTest::mouseClick(form.textBrowser->viewport(), Qt::LeftButton, {},
                      form.textBrowser->cursorRect(verse).center());
    QCOMPARE(window.page(), page);
    QCOMPARE(window.red(), QStringLiteral("[1] Битие 1:1"));
}

void LinksTest::linksAreUnderlinedAndVersesAreNot()
{
    FormFixture window;
    openWithLinks(window);
    QTextDocument* document = window.form().textBrowser->document();
    QVERIFY(document->find(QStringLiteral("Следваща")).charFormat().fontUnderline());
    QVERIFY(!document->find(QStringLiteral("[2]")).charFormat().fontUnderline());
}

void LinksTest::markupReadsNoFile()
{
    const test_support::TempFolder elsewhere;
    const std::string picture = elsewhere.file("picture.png");
    const std::string sheet = elsewhere.write("sheet.css", "p { color: green }");
    QImage image(400, 400, QImage::Format_RGB32);
    image.fill(Qt::blue);
    QVERIFY(image.save(QString::fromStdString(picture)));

    FormFixture window;
    window.install(
        "а", moduleOfVerses({"<img src=\"" + picture + "\"> a", "<img src=\"file://" + picture + "\"> b",
                             "<link rel=\"stylesheet\" href=\"" + sheet + "\"> c",
                             "<style>@import url(\"" + sheet + "\");</style> d",
                             "<table background=\"" + picture + "\"><tr><td>e</td></tr></table>"}));
    const OpenWatch pictureWatch(picture), sheetWatch(sheet);
    const BibleForm& form = window.open();
    form.textBrowser->grab();
    QVERIFY(!pictureWatch.wasOpened());
    QVERIFY(!sheetWatch.wasOpened());
    QVERIFY(form.textBrowser->document()->size().height() < 400);
    QVERIFY(window.page().constFirst().endsWith(QStringLiteral(" a")));
}

void LinksTest::foreignLinkLeadsNowhere()
{
    const test_support::TempFolder elsewhere;
    const std::string other = elsewhere.write("other.html", "<p>elsewhere</p>");
    FormFixture window;
    window.install("а", test_support::makeModule(
                            "А", {{0,
                                   "Битие",
                                   {{"first"},
                                    {"<a href=\"" + other + "\">file</a> <a href=\"file://" + other +
                                         "\">url</a> <a href=\"#2\">anchor</a> <a name=\"other\" "
                                         "href=\"0\">chapter</a>",
                                     "second"}}}}));
    const OpenWatch watch(other);
    window.open();
    window.pick(window.form().comboChapter, 1);
    window.pick(window.form().comboVerse, 1);
    const QStringList page = window.page();
    QCOMPARE(window.links().size(), 4);
    for (int link = 0; link < 4; ++link) {
        window.clickLink(link);
        QCOMPARE(window.page(), page);
        QCOMPARE(window.place(), QStringLiteral("Битие 2 2"));
    }
    QVERIFY(!watch.wasOpened());
    QVERIFY(window.takeBoxes().isEmpty());
}

void LinksTest::hrefThatIsNoNumberIsTheFirstChapter()
{
    FormFixture window;
    window.install("а",
                   test_support::makeModule(
                       "А", {{0, "Битие", {{"first"}, {"<a name=\"gotoChapter\" href=\"x\">link</a>"}}}}));
    window.open();
    window.pick(window.form().comboChapter, 1);
    window.clickLink(0);
    QCOMPARE(window.place(), QStringLiteral("Битие 1 1"));
}

void LinksTest::versesStayApartWhateverTheyHold()
{
    FormFixture window;
    window.install("а", moduleOfVerses({"a < b and c", "plain &amp; &lt;", "<b>bold", "100% %1"}));
    window.open();
    const QStringList page = window.page();
    QCOMPARE(page.size(), 4);
    QVERIFY(page.at(0).startsWith(QStringLiteral("[1] a")));
    QCOMPARE(page.at(1), QStringLiteral("[2] plain & <"));
    QCOMPARE(page.at(2), QStringLiteral("[3] bold"));
    QCOMPARE(page.at(3).trimmed(), QStringLiteral("[4] 100% %1")); // Qt ends the text with a space
}

QTEST_MAIN(LinksTest)
#include "links_test.moc"
