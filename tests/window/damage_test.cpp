#include "form_fixture.h"

#include <QTest>

#include <filesystem>

using namespace window_test;
using test_support::makeModule;
using test_support::ModuleFiles;

namespace {

const QString textError = QStringLiteral("CBibleText::operator [](): I/O error");
const QString vectorError = QStringLiteral("CFileVector::operator [](): IO error");
const QString rangeError = QStringLiteral("CFileVector::operator [](): recordIndex out of range");

/// Two chapters of five verses, all with the number 7.
ModuleFiles wholeModule(const std::string& title = "А")
{
    test_support::Book book{0, "Битие", {{}, {}}};
    for (int verse = 1; verse <= 5; ++verse)
        for (const unsigned int chapter : {1u, 2u})
            book.chapters[chapter - 1].push_back("7 Битие " + std::to_string(chapter) + " глава");
    return makeModule(title, {book});
}

/// The second chapter's text is missing.
ModuleFiles cutModule(const std::string& title = "А")
{
    ModuleFiles files = wholeModule(title);
    std::string& text = files.bytes["CompactText.bin"];
    text.resize(text.size() / 2 + 5);
    return files;
}

void expectBox(FormFixture& window, const char* caption, const QString& text)
{
    const QList<SeenBox> boxes = window.takeBoxes();
    QCOMPARE(boxes.size(), 1);
    QCOMPARE(boxes.first().icon, QMessageBox::Critical);
    QCOMPARE(boxes.first().caption, QString::fromLatin1(caption));
    QCOMPARE(boxes.first().text, text);
    QCOMPARE(boxes.first().buttons, QStringList{QStringLiteral("OK")});
}

void searchFor(const FormFixture& window, const char* text, bool part = false)
{
    window.form().checkPartialWord->setChecked(part);
    FormFixture::typeInto(window.form().comboSearchText, QString::fromUtf8(text));
    FormFixture::press(Qt::Key_Delete); // the completed part
    FormFixture::press(Qt::Key_Return);
}

/// The user's ways to get to the second chapter.
void goToSecondChapter(FormFixture& window, const QString& way)
{
    const BibleForm& form = window.form();
    if (way == QLatin1String("box"))
        window.pick(form.comboChapter, 1);
    else if (way == QLatin1String("typed")) {
        FormFixture::typeInto(form.comboChapter, QStringLiteral("2"));
        FormFixture::press(Qt::Key_Return);
    } else if (way == QLatin1String("reference"))
        window.form().goToRef(Kedrin::Tolvo::CRef(0, 1, 0));
    else if (way == QLatin1String("link")) {
        FormFixture::press(Qt::Key_F8);
        window.clickLink(1);
    } else if (way == QLatin1String("hit")) {
        searchFor(window, "7");
        window.clickHit(9);
    } else if (way == QLatin1String("tab"))
        window.clickTab(1);
}

/// How a file is damaged.
std::string spoiled(const std::string& bytes, const QString& how)
{
    if (how == QLatin1String("cut"))
        return bytes.substr(0, bytes.size() / 2);
    if (how == QLatin1String("odd"))
        return bytes.substr(0, bytes.size() - std::min<std::size_t>(bytes.size(), 3));
    if (how == QLatin1String("empty"))
        return {};
    return std::string(bytes.size(), how == QLatin1String("zeroed") ? '\0' : '\xFF');
}

} // namespace

/// Modules with damaged files. A failed rendering has effect until the process ends, so each function, or
/// data row of one, runs in its own process.
class DamageTest : public QObject
{
    Q_OBJECT

private slots:
    void reading_data();
    void reading();
    void readingAgainWhatHasBeenCutMeanwhile();
    void searching_data();
    void searching();
    void repeatedSearch();
    void anyDamage_data();
    void anyDamage();
};

void DamageTest::reading_data()
{
    QTest::addColumn<QString>("way");
    for (const char* way : {"box", "typed", "reference", "link", "hit", "tab"})
        QTest::newRow(way) << QString::fromLatin1(way);
}

void DamageTest::reading()
{
    QFETCH(QString, way);
    FormFixture window;
    if (way == QLatin1String("tab"))
        window.install("а", wholeModule("Б"));
    window.install("б", cutModule());
    const BibleForm& form = window.open();
    if (way == QLatin1String("tab")) {
        window.chooseTranslation(1);
        window.clickTab(0);
        window.pick(form.comboChapter, 1);
    }
    QVERIFY(window.takeBoxes().isEmpty());
    const QStringList before = window.page();
    goToSecondChapter(window, way);
    expectBox(window, "Error", textError);
    const QString page = form.textBrowser->toHtml();
    if (way != QLatin1String("link"))
        QCOMPARE(window.page(), before);

    window.pick(form.comboChapter, 0); // locked, as after every failed rendering
    FormFixture::press(Qt::Key_F8);
    QCOMPARE(form.textBrowser->toHtml(), page);
    QVERIFY(window.takeBoxes().isEmpty());
    searchFor(window, "7"); // the program still works
    QCOMPARE(window.rows().size(), 10);
    QVERIFY(window.takeBoxes().isEmpty());
}

void DamageTest::readingAgainWhatHasBeenCutMeanwhile()
{
    FormFixture window;
    window.install("а", wholeModule());
    window.open();
    std::filesystem::resize_file(window.modulesPath() + "/а/CompactText.bin", 20);
    FormFixture::press(Qt::Key_F8);
    expectBox(window, "Error", textError);
    searchFor(window, "7");
    QCOMPARE(window.rows().size(), 10);
    window.chooseTranslation(0);
    QCOMPARE(window.tabs(), QStringList());
}

void DamageTest::searching_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QByteArray>("tail");
    QTest::addColumn<bool>("part");
    QTest::addColumn<QString>("message");
    const auto row = [](const char* name, const char* file, const QByteArray& tail, bool part,
                        const QString& message) {
        QTest::newRow(name) << QString::fromLatin1(file) << tail << part << message;
    };
    const QByteArray far(4, '\x7F');
    row("text cut", "CompactText.bin", {}, true, textError);
    row("place beyond the text", "CompactPoint.bin", far, true, textError);
    row("concordance cut", "Conc.bin", {}, false, vectorError);
    row("entry beyond the concordance", "ConcP.bin", far, false, rangeError);
}

/// The last four bytes of a file are removed, replaced by one byte, or changed.
void DamageTest::searching()
{
    QFETCH(QString, file);
    QFETCH(QByteArray, tail);
    QFETCH(bool, part);
    QFETCH(QString, message);
    FormFixture window;
    window.install("а", wholeModule());
    window.open();
    searchFor(window, "7");
    window.clickHit(4);
    const QStringList rows = window.rows();
    window.closeForm();

    ModuleFiles files = wholeModule();
    std::string& bytes = files.bytes[file.toStdString()];
    const char stub = bytes[bytes.size() - 4];
    bytes.resize(bytes.size() - 4);
    bytes += tail.isEmpty() ? std::string(1, stub) : tail.toStdString();
    window.install("а", files);
    const BibleForm& form = window.open();
    QVERIFY(window.takeBoxes().isEmpty());
    searchFor(window, "Битие", !part); // the other kind of search still works
    QCOMPARE(window.rows(), rows);
    window.clickHit(3);
    const QString page = form.textBrowser->toHtml();
    searchFor(window, part ? "няма такъв текст" : "глава", part);
    expectBox(window, "Search Error:", message);
    QCOMPARE(window.rows(), rows);
    QCOMPARE(form.listSearchResults->currentItem(), 3);
    QCOMPARE(form.textBrowser->toHtml(), page);

    window.pick(form.comboVerse, 2); // reading still works
    QCOMPARE(window.red(), QStringLiteral("[3] 7 Битие 1 глава"));
    window.clickHit(0);
    QCOMPARE(window.red(), QStringLiteral("[1] 7 Битие 1 глава"));
    QVERIFY(window.takeBoxes().isEmpty());
}

void DamageTest::repeatedSearch()
{
    FormFixture window;
    window.install("а", wholeModule("Цял"));
    ModuleFiles files = wholeModule("Повреден");
    files.bytes["Conc.bin"].resize(29); // within the verses of "7"
    window.install("б", files);
    const BibleForm& form = window.open();
    searchFor(window, "7");
    window.clickHit(2);
    window.chooseTranslation(1);
    form.checkRedoSearch->setChecked(true);
    window.clickTab(0);
    QCOMPARE(window.rows().size(), 10);
    window.clickHit(2);
    QVERIFY(window.takeBoxes().isEmpty());
    window.clickTab(1);
    expectBox(window, "Search Error:", vectorError);
    QCOMPARE(window.rows().size(), 10);
    QCOMPARE(form.listSearchResults->currentItem(), 2);
    window.clickHit(2);
    QCOMPARE(window.red(), QStringLiteral("[3] 7 Битие 1 глава"));
    window.clickTab(0);
    QVERIFY(window.takeBoxes().isEmpty());
}

void DamageTest::anyDamage_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("how");
    for (const auto& [file, bytes] : wholeModule().bytes)
        for (const char* how : {"cut", "odd", "empty", "zeroed", "filled"})
            QTest::newRow((file + "-" + how).c_str())
                << QString::fromStdString(file) << QString::fromLatin1(how);
}

/// Either one message box at the start and no tab, or a translation that opens and can be read, searched and
/// closed, each with at most one message box; the program still works.
void DamageTest::anyDamage()
{
    QFETCH(QString, file);
    QFETCH(QString, how);
    ModuleFiles files = wholeModule();
    std::string& bytes = files.bytes[file.toStdString()];
    bytes = spoiled(bytes, how);
    FormFixture window;
    window.install("а", files);
    window.install("б", wholeModule("Цял"));
    const BibleForm& form = window.open();
    const auto atMostOneBox = [&](const char* caption) {
        const QList<SeenBox> boxes = window.takeBoxes();
        QVERIFY(boxes.size() <= 1);
        if (!boxes.isEmpty())
            QCOMPARE(boxes.first().caption, QString::fromUtf8(caption));
    };
    if (form.tabsText->count() == 0) {
        QCOMPARE(window.takeBoxes().size(), 1);
        window.chooseTranslation(1);
        QCOMPARE(window.red(), QStringLiteral("[1] 7 Битие 1 глава"));
        return;
    }
    QVERIFY(window.takeBoxes().isEmpty());
    for (const bool part : {false, true}) {
        searchFor(window, "7", part);
        for (const SeenBox& box : window.takeBoxes())
            QVERIFY(box.caption == QLatin1String("Search Error:") ||
                    box.caption == QStringLiteral("Резултат от търсенето"));
    }
    window.pick(form.comboChapter, form.comboChapter->count() - 1);
    atMostOneBox("Error");
    if (!window.rows().isEmpty())
        window.clickHit(static_cast<int>(window.rows().size()) - 1);
    atMostOneBox("Error");
    window.chooseTranslation(0);
    QCOMPARE(window.tabs(), QStringList());
    QVERIFY(window.takeBoxes().isEmpty());
}

QTEST_MAIN(DamageTest)
#include "damage_test.moc"
