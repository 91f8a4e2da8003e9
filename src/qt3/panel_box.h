#pragma once

#include <QGroupBox>

namespace qt3 {

/// A group box without layout whose size hint encloses its children at their fixed positions, with the same
/// margins right and below as left and above. Never smaller than 100 x 50 or the title. The title is painted
/// with a font that fits above the children, so that they never cover it; font() stays inherited.
class PanelBox : public QGroupBox
{
    Q_OBJECT

public:
    using QGroupBox::QGroupBox;
    QSize sizeHint() const override;

    /// None: the layout may make a panel as low as it needs.
    QSize minimumSizeHint() const override;

    /// The font of the painted title; font() if there are no children.
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
