#pragma once

#include <QString>

#include <functional>

class QMessageBox;
class QWidget;

namespace qt3 {

/// All message boxes of the program are shown here. Each is a modal QMessageBox with one button; the call
/// returns when it is closed. Texts are shown as plain text, because a message may quote an untrusted path or
/// title.
class MessageBox
{
public:
    /// Called instead of showing the box, which already has all its texts and buttons.
    using Answer = std::function<void(QMessageBox&)>;

    /// For tests; an empty function shows boxes again.
    static void setAnswer(Answer answer);

    /// @param buttonLabel  replaces the label of the button, "OK"
    static void critical(QWidget* parent, const QString& caption, const QString& text,
                         const QString& buttonLabel = {});

    /// @param buttonLabel  as for critical()
    static void information(QWidget* parent, const QString& caption, const QString& text,
                            const QString& buttonLabel = {});

    /// With the icon of the parent's window.
    static void about(QWidget* parent, const QString& caption, const QString& text);
};

} // namespace qt3
