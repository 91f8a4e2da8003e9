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

/// The size hint of a box for its font, and the font of the text in a box that is too low for it.
class ComboFontTest : public QObject
{
    Q_OBJECT

private slots:
    void hintIsThatOfTheToolkit();
    void textOfALowBoxShrinksAndTheBoxKeepsItsFont();
    void anotherStyleAloneFitsTheTextAnew();
};

/// Compares with a box of the toolkit that has room for seven letters, or three, at every size.
void ComboFontTest::hintIsThatOfTheToolkit()
{
    QComboBox toolkits;
    toolkits.setEditable(true);
    toolkits.setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    qt3::ComboBox box;
    box.setItems({u"Втора книга Паралипоменон"_s});
    for (int points = 4; points < 50; ++points) {
        const QFont font(points % 2 == 0 ? u"DejaVu Sans"_s : u"DejaVu Serif"_s, points);
        for (QComboBox* each : {&toolkits, static_cast<QComboBox*>(&box)})
            each->setFont(font);
        toolkits.setMinimumContentsLength(7);
        QCOMPARE(box.sizeHint(), toolkits.sizeHint());
        toolkits.setMinimumContentsLength(3);
        QCOMPARE(box.minimumSizeHint(), toolkits.sizeHint());
    }
    toolkits.setIconSize({40, 60});
    box.setIconSize({40, 60});
    QCOMPARE(box.minimumSizeHint(), toolkits.sizeHint());
}

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
