#include "chapter_view.h"

#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QImage>
#include <QTemporaryDir>
#include <QTest>
#include <QTextBlock>

using namespace Qt::StringLiterals;

namespace {

constexpr int side = 400; // of the image that must not appear

QByteArray picture()
{
    QImage image(side, side, QImage::Format_RGB32);
    image.fill(Qt::magenta);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return bytes;
}

} // namespace

/// Text that refers to an existing image, style sheet or page that could be loaded.
class ChapterLoadingTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase();

    void pictureIsNotLoaded_data();
    void pictureIsNotLoaded();
    void plainBrowserLoadsThePicture();
    void pictureNamedAsStyleSheetFirstIsNotLoaded_data() { pictureIsNotLoaded_data(); }
    void pictureNamedAsStyleSheetFirstIsNotLoaded();
    void styleSheetIsNotLoaded_data();
    void styleSheetIsNotLoaded();
    void documentAsksNobodyElse_data();
    void documentAsksNobodyElse();
    void clickOnALinkLoadsNothing_data();
    void clickOnALinkLoadsNothing();

private:
    void addAddresses(const QString& fileName, const QByteArray& dataUrl)
    {
        QTest::addColumn<QString>("address");
        const QString path = m_folder.filePath(fileName);
        QTest::newRow("file") << QUrl::fromLocalFile(path).toString();
        QTest::newRow("path") << path;
        QTest::newRow("relative") << fileName;
        QTest::newRow("relative, dots") << u"../"_s + QDir(m_folder.path()).dirName() + u"/"_s + fileName;
        QTest::newRow("http") << u"http://127.0.0.1:1/"_s + fileName;
        QTest::newRow("qrc") << u"qrc:/qt-project.org/styles/commonstyle/images/desktop-32.png"_s;
        QTest::newRow("resource path") << u":/qt-project.org/styles/commonstyle/images/desktop-32.png"_s;
        QTest::newRow("data") << QString::fromLatin1(dataUrl);
    }
    bool showsMagenta(QWidget& view) const
    {
        const QImage image = view.grab().toImage();
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                if (image.pixelColor(x, y) == QColor(Qt::magenta))
                    return true;
        return false;
    }

    QTemporaryDir m_folder;
    QString m_oldFolder;
    QByteArray m_picture = picture();
};

void ChapterLoadingTest::initTestCase()
{
    QVERIFY(m_folder.isValid());
    const QList<QPair<QString, QByteArray>> files = {
        {u"picture.png"_s, m_picture},
        {u"style.css"_s, "p { color: magenta; background-color: magenta; }"},
        {u"page.html"_s, "<p>stranger</p>"}};
    for (const auto& [name, content] : files) {
        QFile file(m_folder.filePath(name));
        QVERIFY(file.open(QIODevice::WriteOnly));
        QCOMPARE(file.write(content), content.size());
    }
    m_oldFolder = QDir::currentPath();
    QVERIFY(QDir::setCurrent(m_folder.path()));
}

void ChapterLoadingTest::cleanupTestCase() { QDir::setCurrent(m_oldFolder); }

void ChapterLoadingTest::pictureIsNotLoaded_data()
{
    addAddresses(u"picture.png"_s, "data:image/png;base64," + m_picture.toBase64());
}

void ChapterLoadingTest::pictureIsNotLoaded()
{
    QFETCH(QString, address);
    qt3::ChapterView view;
    view.resize(600, 600);
    view.setChapter(u"<p>a<img src=\"%1\">b</p><p background=\"%1\">c</p>"
                    "<p style=\"background-image: url(%1)\">d</p>"_s.arg(address));
    view.show();
    QVERIFY(!showsMagenta(view));
    QVERIFY(view.paragraphTop(1) < 100);
}

void ChapterLoadingTest::pictureNamedAsStyleSheetFirstIsNotLoaded()
{
    QFETCH(QString, address);
    qt3::ChapterView view;
    view.resize(600, 600);
    view.setChapter(
        u"<link rel=\"stylesheet\" type=\"text/css\" href=\"%1\"><p>a<img src=\"%1\">b</p>"_s.arg(address));
    view.show();
    QVERIFY(!showsMagenta(view));
}

void ChapterLoadingTest::plainBrowserLoadsThePicture()
{
    // The image would be visible.
    QTextBrowser view;
    view.resize(600, 600);
    view.setHtml(u"<p>a<img src=\"picture.png\">b</p>"_s);
    view.show();
    QVERIFY(showsMagenta(view));
}

void ChapterLoadingTest::styleSheetIsNotLoaded_data()
{
    addAddresses(u"style.css"_s, "data:text/css,p%20%7B%20background-color%3A%20magenta%20%7D");
}

void ChapterLoadingTest::styleSheetIsNotLoaded()
{
    QFETCH(QString, address);
    qt3::ChapterView view;
    view.resize(600, 600);
    view.setChapter(u"<html><head><link rel=\"stylesheet\" type=\"text/css\" href=\"%1\">"
                    "<style>@import url(\"%1\");</style></head><body><p>a</p></body></html>"_s.arg(address));
    view.show();
    QVERIFY(!showsMagenta(view));
    QCOMPARE(view.document()->firstBlock().text(), u"a"_s);
}

void ChapterLoadingTest::documentAsksNobodyElse_data()
{
    addAddresses(u"page.html"_s, "data:text/html,stranger");
}

void ChapterLoadingTest::documentAsksNobodyElse()
{
    QFETCH(QString, address);
    qt3::ChapterView view;
    view.setChapter(u"<p>a</p>"_s);
    // The document caches its resources: an image with the address of a style sheet must still be an image,
    // since a null image would be loaded from a file.
    for (const auto type : {QTextDocument::StyleSheetResource, QTextDocument::HtmlResource,
                            QTextDocument::UserResource, QTextDocument::ImageResource}) {
        const QVariant resource = view.document()->resource(type, QUrl(address));
        QCOMPARE(resource.toByteArray(), QByteArray());
        QCOMPARE(resource.value<QImage>().size(), QSize(1, 1));
        QCOMPARE(resource.value<QImage>().pixelColor(0, 0).alpha(), 0);
    }
}

void ChapterLoadingTest::clickOnALinkLoadsNothing_data()
{
    addAddresses(u"page.html"_s, "data:text/html,stranger");
}

void ChapterLoadingTest::clickOnALinkLoadsNothing()
{
    QFETCH(QString, address);
    qt3::ChapterView view;
    QStringList told;
    connect(&view, &qt3::ChapterView::anchorClickedNamed, this,
            [&told](const QString&, const QString& href) { told.append(href); });
    view.setChapter(u"<p><a href=\"%1\">ддддд</a></p>"_s.arg(address));
    view.show();
    QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, view.cursorRect().center() + QPoint(8, 0));
    QCOMPARE(told, QStringList({address}));
    QCOMPARE(view.toPlainText(), u"ддддд"_s);
    QVERIFY(view.source().isEmpty());
}

QTEST_MAIN(ChapterLoadingTest)
#include "chapter_loading_test.moc"
