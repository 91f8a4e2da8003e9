#pragma once

#include <QLineEdit>

namespace qt3 {

/// The text field of a ComboBox: tells when typing has extended the text, which is when the box completes it.
class ComboLineEdit : public QLineEdit
{
    Q_OBJECT

public:
    using QLineEdit::QLineEdit;

signals:
    /// A typed character (by key or input method) has made the text longer at its end; a selected part counts
    /// as already gone. Not emitted for deleting, pasting, or typing inside the text.
    void extended();

protected:
    /// Return stays with the box: it is not offered to the widgets around it.
    void keyPressEvent(QKeyEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;

private:
    int typedLength() const;
    void tellIfLongerThan(int length);
};

} // namespace qt3
