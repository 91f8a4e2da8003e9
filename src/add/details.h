#pragma once

#include <QWidget>

QT_BEGIN_NAMESPACE
class QPlainTextEdit;
class QPushButton;
QT_END_NAMESPACE

namespace Kedrin::Add {

/// A report that is shown below a button if the user asks for it. The whole is hidden while there is none.
class CDetails final : public QWidget
{
    Q_OBJECT

public:
    /// @param objectName  of the button; the report has the same with "Report"
    explicit CDetails(const char* objectName);

    /// @param report  plain text, lines in columns; "" for none
    void setReport(const QString& report);

private:
    QPushButton* m_button;
    QPlainTextEdit* m_report;
};

} // namespace Kedrin::Add
