#include "chapter_document.h"
#include "module_files.h"
#include "temp_folder.h"
#include "tolvo_bible.h"

#include <QTest>

#include <memory>

using namespace test_support;
using Kedrin::Tolvo::CBible;

namespace {

/// A loaded translation with one book.
class Translation
{
public:
    explicit Translation(const Book& book)
    {
        makeModule("Превод", {book}).write(m_folder.path());
        m_bible = std::make_unique<CBible>(m_folder.path().string());
    }

    QString chapter(unsigned int chapter, unsigned int verse, bool links) const
    {
        return chapterDocument(*m_bible, 0, chapter, verse, links);
    }
    const CBible& bible() const { return *m_bible; }

private:
    TempFolder m_folder;
    std::unique_ptr<CBible> m_bible;
};

/// Three chapters, the second with the verses A and B.
Book threeChapters() { return {0, "Битие", {{"first"}, {"A", "B"}, {"last"}}}; }

QString oneVerse(const std::string& text) { return Translation({0, "Битие", {{text}}}).chapter(0, 9, false); }

} // namespace

/// The exact document of a chapter.
class ChapterDocumentTest : public QObject
{
    Q_OBJECT

private slots:
    void middleChapterHasAllLinksAboveAndBelow();
    void withoutLinksOnlyTheVersesStand();
    void firstChapterHasNoLinkBack();
    void lastChapterHasNoLinkOn();
    void onlyChapterHasNeither();
    void versePastTheEndMarksNone();
    void everyVerseIsAnAnchorCountedFromOne();
    void markupIsInsertedAsItIs();
    void percentSignsAreInsertedAsTheyAre();
    void zeroByteEndsTheText();
    void cyrillicIsReadAs1251();
    void emptyVerseKeepsItsLine();
    void missingChapterThrows();
    void missingBookThrows();
};

void ChapterDocumentTest::middleChapterHasAllLinksAboveAndBelow()
{
    const QString links =
        QStringLiteral("<p><a name=\"gotoChapter\" href=\"0\">&lt;&lt;&nbsp;Предишна глава</a> "
                       "<a name=\"gotoChapter\" href=\"0\">1</a> <a name=\"gotoChapter\" href=\"1\">2</a> "
                       "<a name=\"gotoChapter\" href=\"2\">3</a> "
                       "<a name=\"gotoChapter\" href=\"2\">Следваща глава&nbsp;&gt;&gt;</a></p>\n");
    QCOMPARE(Translation(threeChapters()).chapter(1, 0, true),
             links +
                 QStringLiteral("<p><a name=\"1\"><font color=\"red\">[1] A</font></a></p>\n"
                                "<p><a name=\"2\">[2] B</a></p>\n") +
                 links);
}

void ChapterDocumentTest::withoutLinksOnlyTheVersesStand()
{
    QCOMPARE(Translation(threeChapters()).chapter(1, 1, false),
             QStringLiteral("<p><a name=\"1\">[1] A</a></p>\n"
                            "<p><a name=\"2\"><font color=\"red\">[2] B</font></a></p>\n"));
}

void ChapterDocumentTest::firstChapterHasNoLinkBack()
{
    QVERIFY(Translation(threeChapters())
                .chapter(0, 0, true)
                .startsWith(
                    QStringLiteral("<p><a name=\"gotoChapter\" href=\"0\">1</a> "
                                   "<a name=\"gotoChapter\" href=\"1\">2</a> "
                                   "<a name=\"gotoChapter\" href=\"2\">3</a> "
                                   "<a name=\"gotoChapter\" href=\"1\">Следваща глава&nbsp;&gt;&gt;</a></p>\n"
                                   "<p><a name=\"1\">")));
}

void ChapterDocumentTest::lastChapterHasNoLinkOn()
{
    QVERIFY(Translation(threeChapters())
                .chapter(2, 0, true)
                .startsWith(
                    QStringLiteral("<p><a name=\"gotoChapter\" href=\"1\">&lt;&lt;&nbsp;Предишна глава</a> "
                                   "<a name=\"gotoChapter\" href=\"0\">1</a> "
                                   "<a name=\"gotoChapter\" href=\"1\">2</a> "
                                   "<a name=\"gotoChapter\" href=\"2\">3</a> </p>\n")));
}

void ChapterDocumentTest::onlyChapterHasNeither()
{
    const QString links = QStringLiteral("<p><a name=\"gotoChapter\" href=\"0\">1</a> </p>\n");
    QCOMPARE(Translation({0, "Авдий", {{"A"}}}).chapter(0, 0, true),
             links + QStringLiteral("<p><a name=\"1\"><font color=\"red\">[1] A</font></a></p>\n") + links);
}

void ChapterDocumentTest::versePastTheEndMarksNone()
{
    QCOMPARE(Translation(threeChapters()).chapter(1, 2, false),
             QStringLiteral("<p><a name=\"1\">[1] A</a></p>\n<p><a name=\"2\">[2] B</a></p>\n"));
}

void ChapterDocumentTest::everyVerseIsAnAnchorCountedFromOne()
{
    const Translation translation(plainBook(0, "Битие", {12}));
    const QString document = translation.chapter(0, 99, false);
    QCOMPARE(document.count(QStringLiteral("<p><a name=")), 12);
    QVERIFY(document.endsWith(QStringLiteral("<p><a name=\"12\">[12] Битие 1:12</a></p>\n")));
}

void ChapterDocumentTest::markupIsInsertedAsItIs()
{
    QCOMPARE(oneVerse("a < b &amp; <i>c</i> \"d\""),
             QStringLiteral("<p><a name=\"1\">[1] a < b &amp; <i>c</i> \"d\"</a></p>\n"));
}

void ChapterDocumentTest::percentSignsAreInsertedAsTheyAre()
{
    QCOMPARE(oneVerse("100% от %1 и %2, %L1"),
             QStringLiteral("<p><a name=\"1\">[1] 100% от %1 и %2, %L1</a></p>\n"));
}

void ChapterDocumentTest::zeroByteEndsTheText()
{
    QCOMPARE(oneVerse(std::string("before\0after", 12)),
             QStringLiteral("<p><a name=\"1\">[1] before</a></p>\n"));
}

void ChapterDocumentTest::cyrillicIsReadAs1251()
{
    QCOMPARE(oneVerse("В начало Бог сътвори ё „…“ №"),
             QStringLiteral("<p><a name=\"1\">[1] В начало Бог сътвори ё „…“ №</a></p>\n"));
}

void ChapterDocumentTest::emptyVerseKeepsItsLine()
{
    QCOMPARE(oneVerse(""), QStringLiteral("<p><a name=\"1\">[1] </a></p>\n"));
}

void ChapterDocumentTest::missingChapterThrows()
{
    const Translation translation(threeChapters());
    QVERIFY_THROWS_EXCEPTION(std::out_of_range, translation.chapter(3, 0, false));
    QVERIFY_THROWS_EXCEPTION(std::out_of_range, translation.chapter(4294967295u, 0, false));
}

void ChapterDocumentTest::missingBookThrows()
{
    const Translation translation(threeChapters());
    QVERIFY_THROWS_EXCEPTION(std::out_of_range, chapterDocument(translation.bible(), 1, 0, 0, false));
    QVERIFY_THROWS_EXCEPTION(std::out_of_range, chapterDocument(translation.bible(), 1, 0, 0, true));
}

QTEST_APPLESS_MAIN(ChapterDocumentTest)
#include "chapter_document_test.moc"
