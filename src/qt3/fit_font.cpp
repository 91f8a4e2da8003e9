#include "fit_font.h"

#include <QFontMetrics>

#include <algorithm>

namespace qt3 {

namespace {

constexpr int smallest = 6;

bool fits(const QFont& font, const QString& text, QSize room)
{
    const QSize size = QFontMetrics(font).size(Qt::TextSingleLine | Qt::TextShowMnemonic, text);
    return size.width() <= room.width() && size.height() <= room.height();
}

} // namespace

QFont fitFont(const QFont& font, const QString& text, QSize room)
{
    QFont fit = font;
    if (font.pointSizeF() > 0)
        while (fit.pointSizeF() > smallest && !fits(fit, text, room))
            fit.setPointSizeF(std::max<qreal>(fit.pointSizeF() - 0.5, smallest));
    else
        while (fit.pixelSize() > smallest && !fits(fit, text, room))
            fit.setPixelSize(fit.pixelSize() - 1);
    return fit;
}

} // namespace qt3
