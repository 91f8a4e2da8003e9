#pragma once

#include <QString>

#include <functional>

class QMessageBox;
class QWidget;

namespace qt3 {

/// The one place through which the program's message boxes pass. Each is a modal QMessageBox with one button
/// and returns when it is closed. Texts are shown as they are: markup in them is not interpreted, for a
/// message may quote a path or a title that nobody vouches for.
class MessageBox
{
public:
    /// Called instead of showing the box, which holds all its texts and buttons.
    using Answer = std::function<void(QMessageBox&)>;

    /// For tests; an empty one shows boxes again.
    static void setAnswer(Answer answer);

    /// @param buttonLabel  replaces the label of the button, "OK"; the button does the same
    static void critical(QWidget* parent, const QString& caption, const QString& text,
                         const QString& buttonLabel = {});

    /// @param buttonLabel  as for critical()
    static void information(QWidget* parent, const QString& caption, const QString& text,
                            const QString& buttonLabel = {});

    /// With the icon of the parent's window.
    static void about(QWidget* parent, const QString& caption, const QString& text);
};

} // namespace qt3
