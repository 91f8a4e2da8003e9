#pragma once

#include <QFont>
#include <QSize>
#include <QString>

namespace qt3 {

/// The font itself if the text fits into the space with it, else the largest smaller size, in half points
/// (whole pixels for a font given in pixels) down to 6, with which the text fits; 6 if none does.
/// @param text  one line; `&x` counts as x
/// @param room  in pixels
QFont fitFont(const QFont& font, const QString& text, QSize room);

} // namespace qt3
