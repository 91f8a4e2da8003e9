#include "combo_line_edit.h"

#include <QInputMethodEvent>
#include <QKeyEvent>

namespace qt3 {

namespace {

/// Excludes Ctrl+V, whose event text may be "v".
bool isTyping(const QKeyEvent& event)
{
    return !(event.modifiers() & Qt::ControlModifier) && !event.text().isEmpty() &&
           event.text().front().isPrint();
}

} // namespace

void ComboLineEdit::keyPressEvent(QKeyEvent* event)
{
    const int lengthBefore = typedLength();
    QLineEdit::keyPressEvent(event);
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        event->accept();
    else if (isTyping(*event))
        tellIfLongerThan(lengthBefore);
}

void ComboLineEdit::inputMethodEvent(QInputMethodEvent* event)
{
    const int lengthBefore = typedLength();
    QLineEdit::inputMethodEvent(event);
    if (!event->commitString().isEmpty())
        tellIfLongerThan(lengthBefore);
}

int ComboLineEdit::typedLength() const { return hasSelectedText() ? selectionStart() : cursorPosition(); }

void ComboLineEdit::tellIfLongerThan(int length)
{
    if (cursorPosition() == text().size() && text().size() > length)
        emit extended();
}

} // namespace qt3
