#include "fit_push_button.h"

#include "fit_font.h"

#include <QStyleOptionButton>
#include <QStylePainter>

namespace qt3 {

namespace {

/// Frame and focus rectangle, 2 pixels each on every side.
constexpr int frame = 8;

} // namespace

QFont FitPushButton::paintedFont() const { return fitFont(font(), text(), {width() - frame, height()}); }

void FitPushButton::paintEvent(QPaintEvent*)
{
    QStylePainter painter(this);
    QStyleOptionButton option;
    initStyleOption(&option);
    const QFont fit = paintedFont();
    painter.setFont(fit);
    option.fontMetrics = QFontMetrics(fit);
    painter.drawControl(QStyle::CE_PushButton, option);
}

} // namespace qt3
