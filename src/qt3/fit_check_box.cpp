#include "fit_check_box.h"

#include "fit_font.h"

#include <QStyleOptionButton>
#include <QStylePainter>

namespace qt3 {

QFont FitCheckBox::paintedFont() const
{
    QFont smallest = fittedFont();
    if (const QWidget* parent = parentWidget())
        for (const auto* box : parent->findChildren<FitCheckBox*>(Qt::FindDirectChildrenOnly))
            if (const QFont fitted = box->fittedFont();
                QFontMetrics(fitted).height() < QFontMetrics(smallest).height())
                smallest = fitted;
    return smallest;
}

/// The font for this box alone.
QFont FitCheckBox::fittedFont() const
{
    QStyleOptionButton option;
    initStyleOption(&option);
    return fitFont(font(), text(),
                   style()->subElementRect(QStyle::SE_CheckBoxContents, &option, this).size());
}

void FitCheckBox::paintEvent(QPaintEvent*)
{
    QStylePainter painter(this);
    QStyleOptionButton option;
    initStyleOption(&option);
    const QFont fit = paintedFont();
    painter.setFont(fit);
    option.fontMetrics = QFontMetrics(fit);
    painter.drawControl(QStyle::CE_CheckBox, option);
}

} // namespace qt3
