#include "message_box.h"

#include <QIcon>
#include <QMessageBox>
#include <QPushButton>

#include <utility>

namespace qt3 {

namespace {

constexpr int aboutIconSize = 64;

MessageBox::Answer& answer()
{
    static MessageBox::Answer instance;
    return instance;
}

void prepare(QMessageBox& box, const QString& caption, const QString& text, const QString& buttonLabel)
{
    box.setWindowTitle(caption);
    box.setTextFormat(Qt::PlainText);
    box.setText(text);
    if (buttonLabel.isEmpty())
        box.setStandardButtons(QMessageBox::Ok);
    else
        box.addButton(buttonLabel, QMessageBox::AcceptRole);
}

void run(QMessageBox& box)
{
    if (answer())
        answer()(box);
    else
        box.exec();
}

} // namespace

void MessageBox::setAnswer(Answer newAnswer) { answer() = std::move(newAnswer); }

void MessageBox::critical(QWidget* parent, const QString& caption, const QString& text,
                          const QString& buttonLabel)
{
    QMessageBox box(parent);
    box.setIcon(QMessageBox::Critical);
    prepare(box, caption, text, buttonLabel);
    run(box);
}

void MessageBox::information(QWidget* parent, const QString& caption, const QString& text,
                             const QString& buttonLabel)
{
    QMessageBox box(parent);
    box.setIcon(QMessageBox::Information);
    prepare(box, caption, text, buttonLabel);
    run(box);
}

void MessageBox::about(QWidget* parent, const QString& caption, const QString& text)
{
    QMessageBox box(parent);
    box.setIconPixmap(box.windowIcon().pixmap(aboutIconSize));
    prepare(box, caption, text, {});
    run(box);
}

} // namespace qt3
