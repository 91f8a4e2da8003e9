#pragma once

#include <QPushButton>

namespace qt3 {

/// A push button of fixed size that stays legible at any font: what it paints shrinks to fit, font() stays
/// inherited.
class FitPushButton : public QPushButton
{
    Q_OBJECT

public:
    using QPushButton::QPushButton;

    /// The font the label is painted with at the present size.
    QFont paintedFont() const;

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace qt3
