#include "panel_box.h"

#include <QFontMetrics>

namespace qt3 {

namespace {

constexpr QSize smallest(100, 50);

/// With room for the frame on both sides of the title.
QSize titleSize(const QGroupBox& box)
{
    const QFontMetrics metrics(box.font());
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

void FramelessBox::paintEvent(QPaintEvent*) {}

} // namespace qt3
