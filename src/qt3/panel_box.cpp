#include "panel_box.h"

#include "fit_font.h"

#include <QStyleOptionGroupBox>
#include <QStylePainter>

namespace qt3 {

namespace {

constexpr QSize smallest(100, 50);
constexpr int belowTitle = 6; // position of the frame's upper edge in most styles

/// Includes the frame on both sides of the title.
QSize titleSize(const PanelBox& box)
{
    const QFontMetrics metrics(box.paintedFont());
    return {metrics.horizontalAdvance(box.title()) + 4 * metrics.horizontalAdvance(u'x'), metrics.height()};
}

} // namespace

QSize PanelBox::sizeHint() const
{
    const QSize hint = smallest.expandedTo(titleSize(*this));
    const QRect children = childrenRect();
    if (children.isNull())
        return hint;
    return hint.expandedTo({children.width() + 2 * children.x(), children.height() + 2 * children.y()});
}

QSize PanelBox::minimumSizeHint() const { return {}; }

QFont PanelBox::paintedFont() const
{
    const QRect children = childrenRect();
    if (children.isNull())
        return font();
    return fitFont(font(), title(), {children.width(), children.y() - belowTitle});
}

void PanelBox::paintEvent(QPaintEvent*)
{
    QStylePainter painter(this);
    QStyleOptionGroupBox option;
    initStyleOption(&option);
    const QFont fit = paintedFont();
    painter.setFont(fit);
    option.fontMetrics = QFontMetrics(fit);
    painter.drawComplexControl(QStyle::CC_GroupBox, option);
}

void FramelessBox::paintEvent(QPaintEvent*) {}

} // namespace qt3
