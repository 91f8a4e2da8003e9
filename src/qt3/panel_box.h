#pragma once

#include <QGroupBox>

namespace qt3 {

/// A group box without layout whose size hint goes round its children at their fixed places: as much room to
/// the right and below as they leave to the left and above. Never less than 100 x 50 nor than the title.
class PanelBox : public QGroupBox
{
    Q_OBJECT

public:
    using QGroupBox::QGroupBox;
    QSize sizeHint() const override;

    /// None: a panel may be as low as its surroundings want.
    QSize minimumSizeHint() const override;
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
