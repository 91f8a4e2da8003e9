#include "combo_box.h"

#include <QLineEdit>
#include <QProxyStyle>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

/// Gives a combo box's text field half of its height.
class LowFieldStyle : public QProxyStyle
{
public:
    using QProxyStyle::QProxyStyle;
    QRect subControlRect(ComplexControl control, const QStyleOptionComplex* option, SubControl part,
                         const QWidget* widget) const override
    {
        QRect rect = QProxyStyle::subControlRect(control, option, part, widget);
        if (control == CC_ComboBox && part == SC_ComboBoxEditField)
            rect.setHeight(rect.height() / 2);
        return rect;
    }
};

} // namespace

/// The font of the text in a box that is too low for its font.
class ComboFontTest : public QObject
{
    Q_OBJECT

private slots:
    void textOfALowBoxShrinksAndTheBoxKeepsItsFont();
    void anotherStyleAloneFitsTheTextAnew();
};

void ComboFontTest::textOfALowBoxShrinksAndTheBoxKeepsItsFont()
{
    QWidget parent;
    qt3::ComboBox box(&parent);
    box.setGeometry(0, 0, 130, 30);
    parent.setFont(QFont(u"DejaVu Sans"_s, 12));
    parent.show();
    QCOMPARE(box.lineEdit()->font(), box.font());
    parent.setFont(QFont(u"DejaVu Sans"_s, 24));
    QVERIFY(box.lineEdit()->fontMetrics().height() <= box.lineEdit()->height());
    QCOMPARE(box.font().pointSize(), 24);
    box.resize(130, 80);
    QCOMPARE(box.lineEdit()->font(), box.font());
}

/// Checks that neither the font nor the size of the box changes.
void ComboFontTest::anotherStyleAloneFitsTheTextAnew()
{
    LowFieldStyle low(u"Fusion"_s);
    qt3::ComboBox box;
    box.setFont(QFont(u"DejaVu Sans"_s, 14));
    box.resize(130, 34);
    box.show();
    QCoreApplication::processEvents();
    QCOMPARE(box.lineEdit()->font(), box.font());
    QStyle* before = box.style();
    box.setStyle(&low);
    QCOMPARE(box.size(), QSize(130, 34));
    QVERIFY(box.lineEdit()->fontMetrics().height() <= box.lineEdit()->height());
    QVERIFY(box.lineEdit()->font() != box.font());
    box.setStyle(before);
    QCOMPARE(box.lineEdit()->font(), box.font());
}

QTEST_MAIN(ComboFontTest)
#include "combo_font_test.moc"
