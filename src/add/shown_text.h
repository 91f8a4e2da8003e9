#pragma once

#include <QString>
#include <QStringList>

#include <exception>
#include <string>
#include <string_view>

QT_BEGIN_NAMESPACE
class QLabel;
class QPushButton;
class QScrollArea;
class QTreeWidget;
class QWidget;
QT_END_NAMESPACE

/// kedrin-add: its window, and what it asks the module tool's libraries.
namespace Kedrin::Add {

/// An English text in the user's language, as ModTool::tr() gives it.
QString translated(const char* english);

QString fromUtf8(std::string_view utf8);
std::string toUtf8(const QString& text);

/// A text in one line, its end cut off where it is longer than `maxCharacters`.
QString shortLine(std::string_view utf8, qsizetype maxCharacters);

/// A path as the system knows it.
std::string pathBytes(const QString& path);

/// The message of an exception. It may quote a path, which need not be UTF-8.
QString messageOf(const std::exception& exception);

/// A wrapped label that never takes its text for markup, and whose text can be selected and copied if `isSelectable`.
/// It is hidden while it has no text, if shown with showText().
QLabel* plainLabel(bool isSelectable = false);

/// Sets the text of a label and shows it, or hides it where the text is empty. A screen reader is told of it.
void showText(QLabel& label, const QString& text);

/// An area that scrolls its content where it does not fit, and looks like what it lies on.
QScrollArea* scrollArea(QWidget* content);

/// @param english  of its label, which is translated here
QPushButton* button(const char* objectName, const char* english);

/// A list of rows in columns that are as wide as their texts.
/// @param english  its name for a screen reader, which is translated here
QTreeWidget* rowList(const char* objectName, const char* english, const QStringList& headers);

} // namespace Kedrin::Add
