#include "fit_check_box.h"
#include "fit_font.h"
#include "fit_push_button.h"
#include "painted.h"

#include <QTest>

#include <algorithm>

using namespace Qt::StringLiterals;

/// Fonts that shrink until a text fits, and the boxes and buttons that paint with them.
class FitFontTest : public QObject
{
    Q_OBJECT

private slots:
    void fontThatFitsStays();
    void fontShrinksUntilTheTextFits_data();
    void fontShrinksUntilTheTextFits();
    void fontShrinksUntilTheTextIsLowEnough();
    void fontIsTheFirstOfAllSmallerOnesThatFits();
    void pixelsShrinkOneByOne();
    void fontNeverShrinksBelowSix();
    void checkBoxPaintsSmallerAndKeepsItsFont();
    void checkBoxesOfOnePanelHaveLettersOfOneSize();
    void pushButtonPaintsSmallerAndKeepsItsFont();
    void paintedLabelIsThatOfTheReducedFont();

private:
    template <typename Fit, typename Plain>
    void compareWithPlain(QSize size);
};

void FitFontTest::fontThatFitsStays()
{
    const QFont font(u"DejaVu Sans"_s, 12);
    QCOMPARE(qt3::fitFont(font, u"Търси"_s, {500, 100}), font);
}

void FitFontTest::fontShrinksUntilTheTextFits_data()
{
    QTest::addColumn<int>("pointSize");
    QTest::addColumn<int>("pixelSize");
    QTest::newRow("points") << 24 << -1;
    QTest::newRow("pixels") << -1 << 32;
}

void FitFontTest::fontShrinksUntilTheTextFits()
{
    QFETCH(int, pointSize);
    QFETCH(int, pixelSize);
    QFont font(u"DejaVu Sans"_s);
    if (pointSize > 0)
        font.setPointSize(pointSize);
    else
        font.setPixelSize(pixelSize);
    const QString text = u"Актуализирай"_s;
    const QFont fit = qt3::fitFont(font, text, {110, 24});
    const QFontMetrics metrics(fit);
    QVERIFY(metrics.horizontalAdvance(text) <= 110);
    QVERIFY(metrics.height() <= 24);
    QVERIFY(QFontInfo(fit).pixelSize() >= 6);
    QFont larger = fit;
    if (pointSize > 0)
        larger.setPointSizeF(fit.pointSizeF() + 0.5);
    else
        larger.setPixelSize(fit.pixelSize() + 1);
    const QSize needed = QFontMetrics(larger).size(Qt::TextSingleLine, text);
    QVERIFY(needed.width() > 110 || needed.height() > 24);
}

void FitFontTest::fontShrinksUntilTheTextIsLowEnough()
{
    const QFont fit = qt3::fitFont(QFont(u"DejaVu Sans"_s, 24), u"x"_s, {500, 20});
    QVERIFY(QFontMetrics(fit).height() <= 20);
    QVERIFY(fit.pointSizeF() > 6);
}

/// Tries all sizes, from the largest one down.
void FitFontTest::fontIsTheFirstOfAllSmallerOnesThatFits()
{
    const QString text = u"Актуализирай"_s;
    for (const qreal own : {6.5, 9.0, 12.25, 24.0})
        for (const QSize room :
             {QSize(200, 13), QSize(200, 20), QSize(60, 60), QSize(110, 24), QSize(85, 9)}) {
            QFont font(u"DejaVu Sans"_s);
            font.setPointSizeF(own);
            QFont expected = font;
            const auto fits = [&] {
                const QSize needed = QFontMetrics(expected).size(Qt::TextSingleLine, text);
                return needed.width() <= room.width() && needed.height() <= room.height();
            };
            while (expected.pointSizeF() > 6 && !fits())
                expected.setPointSizeF(std::max(expected.pointSizeF() - 0.5, 6.0));
            QCOMPARE(qt3::fitFont(font, text, room).pointSizeF(), expected.pointSizeF());
        }
}

void FitFontTest::pixelsShrinkOneByOne()
{
    const QString text = u"Актуализирай"_s;
    QFont font(u"DejaVu Sans"_s);
    font.setPixelSize(24);
    for (int pixels = 23; pixels >= 6; --pixels) {
        QFont expected = font;
        expected.setPixelSize(pixels);
        const QSize room = QFontMetrics(expected).size(Qt::TextSingleLine, text);
        QCOMPARE(qt3::fitFont(font, text, room).pixelSize(), pixels);
    }
}

void FitFontTest::fontNeverShrinksBelowSix()
{
    QFont font(u"DejaVu Sans"_s, 12);
    QCOMPARE(qt3::fitFont(font, u"Актуализирай"_s, {1, 1}).pointSizeF(), 6.0);
    font.setPointSize(5);
    QCOMPARE(qt3::fitFont(font, u"Актуализирай"_s, {1, 1}).pointSizeF(), 5.0);
    font.setPixelSize(12);
    QCOMPARE(qt3::fitFont(font, u"Актуализирай"_s, {1, 1}).pixelSize(), 6);
}

void FitFontTest::checkBoxPaintsSmallerAndKeepsItsFont()
{
    QWidget parent;
    qt3::FitCheckBox box(&parent);
    box.setGeometry(0, 0, 110, 24);
    box.setText(u"Актуализирай"_s);
    parent.setFont(QFont(u"DejaVu Sans"_s, 24));
    QCOMPARE(box.font().pointSize(), 24);
    QVERIFY(!box.testAttribute(Qt::WA_SetFont));
    QVERIFY(box.paintedFont().pointSizeF() < 24);
    QVERIFY(QFontMetrics(box.paintedFont()).horizontalAdvance(box.text()) < 110);
    painted(box);
    QCOMPARE(box.font().pointSize(), 24);
}

void FitFontTest::checkBoxesOfOnePanelHaveLettersOfOneSize()
{
    QWidget parent;
    QWidget inner(&parent);
    qt3::FitCheckBox longest(&parent), shortest(&parent), apart(&inner);
    for (QCheckBox* box : {&longest, &shortest, &apart})
        box->setGeometry(0, 0, 110, 24);
    longest.setText(u"Актуализирай"_s);
    shortest.setText(u"а"_s);
    apart.setText(u"а"_s);
    parent.setFont(QFont(u"DejaVu Sans"_s, 12));
    QVERIFY(longest.paintedFont().pointSizeF() < 12);
    QCOMPARE(shortest.paintedFont(), longest.paintedFont());
    QCOMPARE(apart.paintedFont(), parent.font());
}

void FitFontTest::pushButtonPaintsSmallerAndKeepsItsFont()
{
    QWidget parent;
    qt3::FitPushButton button(&parent);
    button.setGeometry(0, 0, 50, 30);
    button.setText(u"Търси"_s);
    parent.setFont(QFont(u"DejaVu Sans"_s, 24));
    QCOMPARE(button.font().pointSize(), 24);
    QVERIFY(!button.testAttribute(Qt::WA_SetFont));
    QVERIFY(QFontMetrics(button.paintedFont()).horizontalAdvance(button.text()) <= 42);
    painted(button);
    QCOMPARE(button.font().pointSize(), 24);
}

template <typename Fit, typename Plain>
void FitFontTest::compareWithPlain(QSize size)
{
    const QString text = u"Актуализирай"_s;
    Fit fit(text);
    fit.setFont(QFont(u"DejaVu Sans"_s, 24));
    fit.resize(size);
    Plain plain(text);
    plain.setFont(fit.font());
    plain.resize(size);
    QVERIFY(painted(fit) != painted(plain));
    plain.setFont(fit.paintedFont());
    QCOMPARE(painted(fit), painted(plain));
}

void FitFontTest::paintedLabelIsThatOfTheReducedFont()
{
    compareWithPlain<qt3::FitPushButton, QPushButton>({110, 30});
    compareWithPlain<qt3::FitCheckBox, QCheckBox>({110, 24});
}

QTEST_MAIN(FitFontTest)
#include "fit_font_test.moc"
