#include "painted.h"
#include "panel_box.h"

#include <QGridLayout>
#include <QImage>
#include <QLabel>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

/// A panel arranged like the search panel: the options at the left, a list below them.
struct Panel : qt3::PanelBox
{
    explicit Panel(QWidget* parent = nullptr) : PanelBox(parent)
    {
        auto* options = new qt3::FramelessBox(this);
        options->setGeometry(10, 20, 160, 90);
        auto* list = new QWidget(this);
        list->setGeometry(11, 125, 160, 430);
    }
};

} // namespace

class PanelTest : public QObject
{
    Q_OBJECT

private slots:
    void hintGoesRoundTheChildren();
    void emptyPanelIsAsLargeAsItsTitle();
    void titleShrinksToFitAboveTheChildren();
    void titleIsPaintedAsInAPanelOfTheReducedFont();
    void panelKeepsItsWidthInAGrid();
    void framelessBoxPaintsNothing();
};

void PanelTest::hintGoesRoundTheChildren()
{
    Panel panel;
    QCOMPARE(panel.sizeHint(), QSize(181, 575));
    panel.show();
    QCOMPARE(panel.sizeHint(), QSize(181, 575));
    QCOMPARE(panel.minimumSizeHint(), QSize());
}

void PanelTest::emptyPanelIsAsLargeAsItsTitle()
{
    qt3::PanelBox panel;
    QCOMPARE(panel.sizeHint(), QSize(100, 50));
    panel.setTitle(QString(100, u'щ'));
    QVERIFY(panel.sizeHint().width() > panel.fontMetrics().horizontalAdvance(panel.title()));
}

void PanelTest::titleShrinksToFitAboveTheChildren()
{
    Panel panel;
    QFont large = panel.font();
    large.setPointSize(24);
    panel.setFont(large);
    panel.setTitle(u"Търсене"_s);
    QVERIFY(QFontMetrics(panel.paintedFont()).height() < 20);
    QCOMPARE(panel.font().pointSize(), 24);
    QCOMPARE(panel.sizeHint(), QSize(181, 575));

    panel.resize(181, 575);
    const QImage picture = painted(panel); // the children paint nothing
    int lowest = 0;                        // dark pixels of the title; the frame is lighter
    for (int y = 0; y < 60; ++y)
        for (int x = 5; x < 170; ++x)
            if (qGray(picture.pixel(x, y)) < 60)
                lowest = y;
    QVERIFY(lowest > 3);
    QVERIFY(lowest < 20);
}

void PanelTest::titleIsPaintedAsInAPanelOfTheReducedFont()
{
    Panel panel;
    QFont large = panel.font();
    large.setPointSize(24);
    panel.setFont(large);
    panel.setTitle(u"Търсене"_s);
    panel.resize(181, 575);
    Panel reduced;
    reduced.setFont(panel.paintedFont());
    reduced.setTitle(panel.title());
    reduced.resize(panel.size());
    QCOMPARE(painted(panel), painted(reduced));
}

void PanelTest::panelKeepsItsWidthInAGrid()
{
    QWidget window;
    auto* grid = new QGridLayout(&window);
    auto* panel = new Panel(&window);
    panel->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Ignored);
    grid->addWidget(panel, 0, 0);
    grid->addWidget(new QLabel(&window), 0, 1);
    window.resize(700, 400);
    window.show();
    QCOMPARE(panel->width(), 181);
    QVERIFY(panel->height() < 400);
}

void PanelTest::framelessBoxPaintsNothing()
{
    qt3::FramelessBox box;
    box.setTitle(u"Заглавие"_s);
    box.resize(100, 60);
    QImage white(box.size(), QImage::Format_RGB32);
    white.fill(Qt::white);
    QCOMPARE(painted(box), white);

    QGroupBox framed;
    framed.resize(100, 60);
    QVERIFY(painted(framed) != white);
}

QTEST_MAIN(PanelTest)
#include "panel_test.moc"
