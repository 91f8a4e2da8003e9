#include "language.h"
#include "sword_fixture.h"

#include <QAbstractButton>
#include <QApplication>
#include <QCheckBox>
#include <QDir>
#include <QLineEdit>
#include <QScrollArea>
#include <QTest>
#include <QTreeWidget>

using namespace add_test;

namespace {

QPalette darkPalette()
{
    const QColor text(235, 235, 235);
    QPalette palette(QColor(40, 42, 45));
    palette.setColor(QPalette::Base, QColor(27, 28, 30));
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Active, role, text);
    palette.setColor(QPalette::Highlight, QColor(60, 110, 180));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    return palette;
}

constexpr const char* changedText =
    "\\id GEN\n\\c 1\n\\p\n"
    "\\v 1 В началото Бог създаде небето и земята.\\f + \\ft бележка\\f*\n"
    "\\v 2 А земята беше пуста и неустроена; и тъмнина беше върху бездната; и Дух "
    "Божий се носеше върху водите.\u2192\n\\v 3 И рече Бог: Да бъде светлина. И "
    "стана светлина.\n\\id XXA\n\\c 1\n\\p\n\\v 1 Чуждо\n";

} // namespace

/// How the window looks, in light and dark, at small and large fonts: nothing is cut off. The pictures are kept.
class LooksTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void nothingIsCutOff_data();
    void nothingIsCutOff();

private:
    void keep(const SwordFixture& fixture, const char* page) const;

    QPalette m_light;
};

void LooksTest::initTestCase()
{
    Kedrin::ModTool::chooseLanguage();
    m_light = QApplication::palette();
    QDir().mkpath(QStringLiteral(PICTURES));
}

void LooksTest::nothingIsCutOff_data()
{
    QTest::addColumn<bool>("dark");
    QTest::addColumn<int>("points");
    for (const int points : {9, 24})
        for (const bool dark : {false, true})
            QTest::addRow("%s-%d", dark ? "dark" : "light", points) << dark << points;
}

/// Keeps a picture, and looks at all that is seen.
void LooksTest::keep(const SwordFixture& fixture, const char* page) const
{
    QCoreApplication::processEvents();
    const QString platform = qEnvironmentVariable("PICTURES_DPI", QStringLiteral("offscreen"));
    const QString name =
        QStringLiteral("/%1-%2-%3.png")
            .arg(platform, QString::fromLatin1(QTest::currentDataTag()), QString::fromLatin1(page));
    QVERIFY(fixture.window().grab().save(QStringLiteral(PICTURES) + name));
    for (const auto* button : fixture.window().findChildren<QAbstractButton*>())
        if (button->isVisible() && !button->text().isEmpty())
            QVERIFY2(button->width() >= button->minimumSizeHint().width(), qPrintable(button->text()));
    for (const auto* label : fixture.window().findChildren<QLabel*>())
        if (label->isVisible())
            QTRY_VERIFY2(label->height() >= label->heightForWidth(label->width()), qPrintable(label->text()));
    for (auto* area : fixture.window().findChildren<QScrollArea*>())
        if (area->isVisible())
            QVERIFY2(area->widget()->width() >= area->widget()->minimumSizeHint().width(), page);
}

void LooksTest::nothingIsCutOff()
{
    QFETCH(bool, dark);
    QFETCH(int, points);
    QApplication::setPalette(dark ? darkPalette() : m_light);
    QFont font = QApplication::font();
    font.setPointSize(points);
    QApplication::setFont(font);
    SwordFixture fixture;
    install(fixture, "превод-с-дълго-име-за-списъка");
    install(fixture, "a");
    fixture.file("data/kedrin/modules/bibles/a/CompactText.bin", "x");
    fixture.sword().add("Beta", {{"Gen 1:1", "Бог"}}, "Description=Библия с дълго заглавие за този списък\n");
    fixture.configure("HTTPSSource=Хранилище с дълго име за този списък|example.org|/sword\n");
    fixture.offer("Second",
                  "Description=Друга Библия с дълго заглавие за този списък\nLang=bg\nInstallSize=1900000\n");
    fixture.open();
    keep(fixture, "empty");
    fixture.dropAndWait(fixture.file("a.xml", "<html></html>"));
    keep(fixture, "refused");
    fixture.dropAndWait(fixture.file("Моят превод.usfm", changedText));
    fixture.typeInto("name", QStringLiteral("a"));
    keep(fixture, "taken");
    fixture.click("details");
    keep(fixture, "details");
    fixture.click("details");
    fixture.typeInto("name", QStringLiteral("b"));
    fixture.addAndWait();
    keep(fixture, "added");
    fixture.window().setCurrentIndex(1);
    QTRY_VERIFY(fixture.part("addSword")->isEnabled());
    keep(fixture, "sword");
    fixture.listFolder();
    keep(fixture, "repository");
    fixture.enterAddress("https://example.org/sword");
    keep(fixture, "network");
    fixture.window().setCurrentIndex(2);
    auto* list = fixture.part<QTreeWidget>("modules");
    list->setCurrentItem(list->topLevelItem(0));
    QTRY_VERIFY(fixture.isSeen("installedDetails"));
    fixture.click("remove");
    keep(fixture, "installed");
}

QTEST_MAIN(LooksTest)
#include "looks_test.moc"
