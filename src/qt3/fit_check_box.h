#pragma once

#include <QCheckBox>

namespace qt3 {

/// A check box of fixed size that stays legible at any font: what it paints shrinks to fit, font() stays
/// inherited.
class FitCheckBox : public QCheckBox
{
    Q_OBJECT

public:
    using QCheckBox::QCheckBox;

    /// The font the label is painted with at the present size.
    QFont paintedFont() const;

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace qt3
