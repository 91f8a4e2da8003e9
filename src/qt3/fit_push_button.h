#pragma once

#include <QPushButton>

namespace qt3 {

/// A push button of fixed size that stays legible with any font: its painted label shrinks to fit, font()
/// stays inherited.
class FitPushButton : public QPushButton
{
    Q_OBJECT

public:
    using QPushButton::QPushButton;

    /// The font of the painted label at the current size.
    QFont paintedFont() const;

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace qt3
