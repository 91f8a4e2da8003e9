#pragma once

#include <QWidget>

QT_BEGIN_NAMESPACE
class QLabel;
class QProgressBar;
class QPushButton;
QT_END_NAMESPACE

namespace Kedrin::Add {

/// How far a job is, with a button that cancels it.
class CProgressRow final : public QWidget
{
    Q_OBJECT

public:
    /// The names of the bar, with "Name" of the label above it, and of the button.
    explicit CProgressRow(const char* barName = "progress", const char* buttonName = "cancel");

    /// A job has begun that has told nothing yet.
    void begin();

    /// @param name  what the job is doing
    void tell(const QString& name, int percent);

signals:
    void cancelled(); ///< the job will end at its next step

private:
    void cancel();

    QLabel* m_name;
    QProgressBar* m_bar;
    QPushButton* m_cancel;
};

} // namespace Kedrin::Add
