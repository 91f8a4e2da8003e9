#pragma once

#include <QLineEdit>

namespace qt3 {

/// The text field of a ComboBox: signals that typing has extended the text, which makes the box complete it.
class ComboLineEdit : public QLineEdit
{
    Q_OBJECT

public:
    using QLineEdit::QLineEdit;

signals:
    /// A typed character (by key or input method) has extended the text at its end; selected text counts as
    /// already deleted. Not emitted for deleting, pasting, or typing inside the text.
    void extended();

protected:
    /// Return is handled by the box: it is not passed to its parent widgets.
    void keyPressEvent(QKeyEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;

private:
    int typedLength() const;
    void tellIfLongerThan(int length);
};

} // namespace qt3
