#include "chapter_view.h"
#include "combo_box.h"
#include "fit_push_button.h"
#include "form_fixture.h"
#include "panel_box.h"
#include "tab_bar.h"

#include <QApplication>
#include <QGridLayout>
#include <QMenuBar>
#include <QStatusBar>
#include <QTest>
#include <QToolBar>

using namespace window_test;

namespace {

void openOn(FormFixture& window)
{
    window.install("a", alphaModule());
    window.open();
}

} // namespace

/// The positions and fonts of the window's parts.
class LayoutTest : public QObject
{
    Q_OBJECT

private slots:
    void widgetsHaveTheirNamesClassesAndParents_data();
    void widgetsHaveTheirNamesClassesAndParents();
    void fontIsCourierOf12Points();
    void menuBarKeepsItsFont();
    void outerGridHasItsMargins();
    void unmanagedWidgetsLieWhereTheyShould_data();
    void unmanagedWidgetsLieWhereTheyShould();
    void panelIs181WideAtAnySize();
    void optionsGroupPaintsNoFrame();
    void boxesShareTheToolBarsWidth();
    void tabsLieDirectlyAboveThePage();
    void sizeIsAtLeast700By670();
    void sizeGrowsWithTheMinimum();
    void statusBarIsThereAndEmpty();
};

void LayoutTest::widgetsHaveTheirNamesClassesAndParents_data()
{
    QTest::addColumn<QByteArray>("className");
    QTest::addColumn<QString>("parent");
    const auto row = [](const char* name, const char* className, const char* parent) {
        QTest::newRow(name) << QByteArray(className) << QString::fromLatin1(parent);
    };
    row("qt_central_widget", "QWidget", "BibleForm");
    row("BibleFormLayout", "QGridLayout", "qt_central_widget");
    row("groupSearch", "QGroupBox", "qt_central_widget");
    row("groupSearchOptions", "QGroupBox", "groupSearch");
    row("btnHideSearch", "QPushButton", "groupSearchOptions");
    row("btnSearch", "QPushButton", "groupSearchOptions");
    row("checkRedoSearch", "QCheckBox", "groupSearchOptions");
    row("checkCaseSensitive", "QCheckBox", "groupSearchOptions");
    row("checkPartialWord", "QCheckBox", "groupSearchOptions");
    row("comboSearchText", "QComboBox", "groupSearchOptions");
    row("listSearchResults", "QListView", "groupSearch");
    row("groupText", "QGroupBox", "qt_central_widget");
    row("groupTextLayout", "QGridLayout", "");
    row("textBrowser", "QTextBrowser", "groupText");
    row("tabsText", "QTabBar", "groupText");
    row("comboBook", "QComboBox", "toolbarLocation");
    row("comboChapter", "QComboBox", "toolbarLocation");
    row("comboVerse", "QComboBox", "toolbarLocation");
    row("toolbarLocation", "QToolBar", "BibleForm");
    row("menubar", "QMenuBar", "BibleForm");
    row("menuFile", "QMenu", "BibleForm");
    row("menuTranslations", "QMenu", "BibleForm");
    row("menuView", "QMenu", "BibleForm");
    row("menuHelp", "QMenu", "BibleForm");
}

void LayoutTest::widgetsHaveTheirNamesClassesAndParents()
{
    FormFixture window;
    openOn(window);
    QFETCH(QByteArray, className);
    QFETCH(QString, parent);
    const QString name = QString::fromLatin1(QTest::currentDataTag());
    const auto found = window.form().findChildren<QObject*>(name);
    QCOMPARE(found.size(), 1);
    QVERIFY2(found.first()->inherits(className.constData()), found.first()->metaObject()->className());
    if (!parent.isEmpty())
        QCOMPARE(found.first()->parent()->objectName(), parent);
}

void LayoutTest::fontIsCourierOf12Points()
{
    FormFixture window;
    openOn(window);
    QCOMPARE(window.form().font().family(), QStringLiteral("Courier 10 Pitch"));
    QCOMPARE(window.form().font().pointSize(), 12);
    QCOMPARE(window.form().textBrowser->font(), window.form().font());
    QCOMPARE(window.form().btnSearch->font(), window.form().font());
    QCOMPARE(window.form().font().bold(), QApplication::font().bold());
}

void LayoutTest::menuBarKeepsItsFont()
{
    FormFixture window;
    openOn(window);
    QFont other = window.form().font();
    other.setPointSize(20);
    other.setFamily(QStringLiteral("Serif"));
    window.form().setFont(other);
    QCOMPARE(window.form().menubar->font().pointSize(), 12);
    QCOMPARE(window.form().menubar->font().family(), QStringLiteral("Courier 10 Pitch"));
    QCOMPARE(window.form().textBrowser->font().pointSize(), 20);
}

void LayoutTest::outerGridHasItsMargins()
{
    FormFixture window;
    openOn(window);
    const QLayout* grid = window.form().centralWidget()->layout();
    QCOMPARE(grid->contentsMargins(), QMargins(11, 11, 11, 11));
    QCOMPARE(grid->spacing(), 6);
    const QLayout* column = window.form().groupText->layout();
    QCOMPARE(column->contentsMargins(), QMargins(11, 11, 11, 11));
    QCOMPARE(column->spacing(), 6);
    const auto* inner = window.form().findChild<QGridLayout*>(QStringLiteral("groupTextLayout"));
    QCOMPARE(inner->alignment(), Qt::Alignment(Qt::AlignTop));
}

void LayoutTest::unmanagedWidgetsLieWhereTheyShould_data()
{
    QTest::addColumn<QRect>("place");
    QTest::newRow("groupSearchOptions") << QRect(10, 20, 160, 90);
    QTest::newRow("btnHideSearch") << QRect(140, 0, 20, 20);
    QTest::newRow("btnSearch") << QRect(110, 50, 50, 30);
    QTest::newRow("checkRedoSearch") << QRect(0, 70, 110, 24);
    QTest::newRow("checkCaseSensitive") << QRect(0, 50, 71, 24);
    QTest::newRow("checkPartialWord") << QRect(0, 30, 110, 24);
    QTest::newRow("comboSearchText") << QRect(0, 0, 130, 30);
    QTest::newRow("listSearchResults") << QRect(11, 125, 160, 430);
}

void LayoutTest::unmanagedWidgetsLieWhereTheyShould()
{
    FormFixture window;
    openOn(window);
    QFETCH(QRect, place);
    const auto* widget = window.form().findChild<QWidget*>(QString::fromLatin1(QTest::currentDataTag()));
    QCOMPARE(widget->geometry(), place);
    window.form().resize(1100, 900);
    QCoreApplication::processEvents();
    QCOMPARE(widget->geometry(), place);
}

void LayoutTest::panelIs181WideAtAnySize()
{
    FormFixture window;
    openOn(window);
    const QSizePolicy policy = window.form().groupSearch->sizePolicy();
    QCOMPARE(policy.horizontalPolicy(), QSizePolicy::Fixed);
    QCOMPARE(policy.verticalPolicy(), QSizePolicy::Ignored);
    QCOMPARE(policy.horizontalStretch(), 0);
    QCOMPARE(policy.verticalStretch(), 0);
    for (const int width : {700, 1000}) {
        window.form().resize(width, 670);
        QTRY_COMPARE(window.form().groupText->width(), width - 11 - 181 - 6 - 11);
        QCOMPARE(window.form().groupSearch->width(), 181);
        QCOMPARE(window.form().groupSearch->x(), 11);
        QCOMPARE(window.form().groupSearch->height(), window.form().groupText->height());
    }
}

void LayoutTest::optionsGroupPaintsNoFrame()
{
    FormFixture window;
    openOn(window);
    const QImage panel = window.form().groupSearch->grab().toImage();
    const QRgb ground = panel.pixel(165, 115); // below the group, above the list
    for (int y = 42; y < 69; ++y)              // the group's right edge, between its two buttons
        QCOMPARE(panel.pixel(169, y), ground);
    for (int x = 125; x < 165; ++x) // its lower edge, right of the check box
        QCOMPARE(panel.pixel(x, 109), ground);
}

void LayoutTest::boxesShareTheToolBarsWidth()
{
    FormFixture window;
    openOn(window);
    const BibleForm& form = window.form();
    QVERIFY(form.comboBook->x() < form.comboChapter->x());
    QVERIFY(form.comboChapter->x() < form.comboVerse->x());
    QVERIFY(qAbs(form.comboBook->width() - form.comboChapter->width()) <= 1);
    QVERIFY(qAbs(form.comboBook->width() - form.comboVerse->width()) <= 1);
    QVERIFY(form.comboBook->width() > 220);
    QCOMPARE(form.toolBarArea(form.toolbarLocation), Qt::TopToolBarArea);
    QVERIFY(!form.toolBarBreak(form.toolbarLocation));
    QCOMPARE(form.toolbarLocation->width(), form.width());
}

void LayoutTest::tabsLieDirectlyAboveThePage()
{
    FormFixture window;
    openOn(window);
    const QRect tabs = window.form().tabsText->geometry();
    const QRect page = window.form().textBrowser->geometry();
    QVERIFY(tabs.bottom() < page.top());
    QVERIFY(page.top() - tabs.bottom() <= 7);
    QCOMPARE(tabs.left(), page.left());
    QVERIFY(page.height() > 400);
    QVERIFY(page.bottom() > window.form().groupText->height() - 20);
}

void LayoutTest::sizeIsAtLeast700By670()
{
    FormFixture window;
    openOn(window);
    QCOMPARE(window.form().size(), QSize(700, 670));
}

void LayoutTest::sizeGrowsWithTheMinimum()
{
    FormFixture window;
    qApp->setStyleSheet(QStringLiteral("QTextBrowser { min-width: 900px; min-height: 800px }"));
    openOn(window);
    qApp->setStyleSheet({});
    QVERIFY(window.form().width() > 900);
    QVERIFY(window.form().height() > 800);
}

void LayoutTest::statusBarIsThereAndEmpty()
{
    FormFixture window;
    openOn(window);
    const auto bars = window.form().findChildren<QStatusBar*>();
    QCOMPARE(bars.size(), 1);
    QVERIFY(bars.first()->isVisible());
    QVERIFY(bars.first()->currentMessage().isEmpty());
}

QTEST_MAIN(LayoutTest)
#include "layout_test.moc"
