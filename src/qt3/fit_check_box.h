#pragma once

#include <QCheckBox>

namespace qt3 {

/// A check box of fixed size that stays legible with any font: its painted label shrinks to fit, font() stays
/// inherited. Boxes with the same parent use the same font, the smallest that any of them needs.
class FitCheckBox : public QCheckBox
{
    Q_OBJECT

public:
    using QCheckBox::QCheckBox;

    /// The font of the painted label at the current size.
    QFont paintedFont() const;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QFont fittedFont() const;
};

} // namespace qt3
