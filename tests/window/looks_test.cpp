#include "chapter_view.h"
#include "combo_box.h"
#include "fit_check_box.h"
#include "fit_push_button.h"
#include "form_fixture.h"
#include "list_box.h"
#include "panel_box.h"

#include <QApplication>
#include <QDir>
#include <QTest>

#include <cmath>

using namespace window_test;

namespace {

QPalette darkPalette()
{
    const QColor ground(40, 42, 45), base(27, 28, 30), text(235, 235, 235);
    QPalette palette(ground);
    palette.setColor(QPalette::Base, base);
    palette.setColor(QPalette::WindowText, text);
    palette.setColor(QPalette::Text, text);
    palette.setColor(QPalette::ButtonText, text);
    palette.setColor(QPalette::Highlight, QColor(60, 110, 180));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::Link, QColor(110, 170, 255));
    return palette;
}

/// Relative luminance, 0 to 1.
double luminance(QRgb pixel)
{
    const auto linear = [](int channel) {
        const double c = channel / 255.0;
        return c <= 0.04045 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(qRed(pixel)) + 0.7152 * linear(qGreen(pixel)) + 0.0722 * linear(qBlue(pixel));
}

/// The contrast of the lightest and the darkest pixel inside a widget's frame, 1 to 21.
double contrast(QWidget* widget)
{
    const QImage picture = widget->grab(widget->rect().adjusted(3, 3, -3, -3)).toImage();
    double darkest = 1, lightest = 0;
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x) {
            const double value = luminance(picture.pixel(x, y));
            darkest = std::min(darkest, value);
            lightest = std::max(lightest, value);
        }
    return (lightest + 0.05) / (darkest + 0.05);
}

} // namespace

/// The look of the window: legible in light and dark, with small and large fonts. The pictures are kept.
class LooksTest : public QObject
{
    Q_OBJECT

private slots:
    void everythingIsLegible_data();
    void everythingIsLegible();
};

void LooksTest::everythingIsLegible_data()
{
    QTest::addColumn<bool>("dark");
    QTest::addColumn<int>("points");
    for (const int points : {9, 12, 24})
        for (const bool dark : {false, true})
            QTest::addRow("%s-%d", dark ? "dark" : "light", points) << dark << points;
}

void LooksTest::everythingIsLegible()
{
    QFETCH(bool, dark);
    QFETCH(int, points);
    const QPalette before = QApplication::palette();
    if (dark)
        QApplication::setPalette(darkPalette());
    FormFixture window;
    window.install("а", alphaModule());
    window.install("б", betaModule());
    BibleForm& form = window.open();
    QFont font = form.font();
    font.setPointSize(points);
    form.setFont(font);
    window.chooseTranslation(1);
    QTest::mouseClick(form.checkPartialWord, Qt::LeftButton, {}, QPoint(8, 12));
    FormFixture::press(Qt::Key_F8);
    FormFixture::typeInto(form.comboSearchText, QStringLiteral("Псал"));
    FormFixture::press(Qt::Key_Return);
    window.clickHit(2);
    QCoreApplication::processEvents();

    QDir().mkpath(QStringLiteral(PICTURES));
    form.grab().save(QStringLiteral(PICTURES "/%1.png").arg(QString::fromLatin1(QTest::currentDataTag())));
    for (QWidget* widget :
         {static_cast<QWidget*>(form.checkPartialWord), static_cast<QWidget*>(form.checkRedoSearch),
          static_cast<QWidget*>(form.checkCaseSensitive), static_cast<QWidget*>(form.btnSearch),
          static_cast<QWidget*>(form.btnHideSearch), static_cast<QWidget*>(form.comboBook),
          static_cast<QWidget*>(form.comboSearchText), static_cast<QWidget*>(form.textBrowser),
          static_cast<QWidget*>(form.listSearchResults)})
        QVERIFY2(contrast(widget) > 7, qPrintable(widget->objectName()));
    for (const auto* box : {form.checkPartialWord, form.checkRedoSearch, form.checkCaseSensitive})
        QVERIFY(QFontMetrics(box->paintedFont()).horizontalAdvance(box->text()) < box->width() - 16);
    QVERIFY(QFontMetrics(form.btnSearch->paintedFont()).horizontalAdvance(form.btnSearch->text()) <
            form.btnSearch->width());
    QApplication::setPalette(before);
}

QTEST_MAIN(LooksTest)
#include "looks_test.moc"
