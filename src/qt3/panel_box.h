#pragma once

#include <QGroupBox>

namespace qt3 {

/// A group box without layout whose size hint goes round its children at their fixed places: as much room to
/// the right and below as they leave to the left and above. Never less than 100 x 50 nor than the title. The title is
/// painted with a font that fits above the children, so that they never cover it; font() stays inherited.
class PanelBox : public QGroupBox
{
    Q_OBJECT

public:
    using QGroupBox::QGroupBox;
    QSize sizeHint() const override;

    /// None: a panel may be as low as its surroundings want.
    QSize minimumSizeHint() const override;

    /// The font the title is painted with; without children font() itself.
    QFont paintedFont() const;

protected:
    void paintEvent(QPaintEvent* event) override;
};

/// A group box that paints nothing: it only groups.
class FramelessBox : public QGroupBox
{
    Q_OBJECT

public:
    using QGroupBox::QGroupBox;

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace qt3
