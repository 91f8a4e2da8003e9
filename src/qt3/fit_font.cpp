#include "fit_font.h"

#include <QFontMetrics>

#include <algorithm>
#include <cmath>

namespace qt3 {

namespace {

QSize sizeOf(const QString& text, const QFont& font)
{
    return QFontMetrics(font).size(Qt::TextSingleLine | Qt::TextShowMnemonic, text);
}

/// The sizes below its own that a font can be given, each a step smaller; the first has index 1.
class CSmallerSizes
{
public:
    explicit CSmallerSizes(const QFont& font)
        : m_font(font),
          m_inPoints(font.pointSizeF() > 0),
          m_own(m_inPoints ? font.pointSizeF() : font.pixelSize()),
          m_step(m_inPoints ? 0.5 : 1)
    {}

    qreal own() const { return m_own; }

    /// 0 if there is none.
    int last() const { return m_own > smallest ? indexOf(smallest) : 0; }

    /// The first index whose size is not larger than this one.
    int indexOf(qreal size) const { return static_cast<int>(std::ceil((m_own - size) / m_step)); }

    QFont at(int index) const
    {
        QFont font = m_font;
        const qreal size = std::max(m_own - index * m_step, smallest);
        if (m_inPoints)
            font.setPointSizeF(size);
        else
            font.setPixelSize(static_cast<int>(size));
        return font;
    }

private:
    static constexpr qreal smallest = 6;

    QFont m_font;
    bool m_inPoints;
    qreal m_own, m_step;
};

} // namespace

QFont fitFont(const QFont& font, const QString& text, QSize room)
{
    const auto fits = [&](const QSize& size) {
        return size.width() <= room.width() && size.height() <= room.height();
    };
    const QSize size = sizeOf(text, font);
    const CSmallerSizes sizes(font);
    const int last = sizes.last();
    if (last == 0 || fits(size))
        return font;
    // A text grows nearly as its font does. The system loads each size that is measured, which is slow.
    const qreal share = std::min(qreal(room.width()) / std::max(size.width(), 1),
                                 qreal(room.height()) / std::max(size.height(), 1));
    int index = std::clamp(sizes.indexOf(sizes.own() * share), 1, last);
    while (index < last && !fits(sizeOf(text, sizes.at(index))))
        ++index;
    while (index > 1 && fits(sizeOf(text, sizes.at(index - 1))))
        --index;
    return sizes.at(index);
}

} // namespace qt3
