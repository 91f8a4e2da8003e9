#pragma once

#include <QImage>
#include <QWidget>

/// What the widget and those in it paint, on white.
inline QImage painted(QWidget& widget)
{
    QImage image(widget.size(), QImage::Format_RGB32);
    image.fill(Qt::white);
    widget.render(&image, {}, {}, QWidget::DrawChildren);
    return image;
}
