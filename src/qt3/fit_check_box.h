#pragma once

#include <QCheckBox>

namespace qt3 {

/// A check box of fixed size that stays legible at any font: what it paints shrinks to fit, font() stays
/// inherited. Those with the same parent are painted alike, as the one that has to shrink most.
class FitCheckBox : public QCheckBox
{
    Q_OBJECT

public:
    using QCheckBox::QCheckBox;

    /// The font the label is painted with at the present size.
    QFont paintedFont() const;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QFont fittedFont() const;
};

} // namespace qt3
