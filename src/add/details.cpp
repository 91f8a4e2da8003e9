#include "details.h"

#include "messages.h"
#include "shown_text.h"

#include <QFontDatabase>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace Kedrin::Add {

CDetails::CDetails(const char* objectName)
    : m_button(button(objectName, ModTool::translatable("&Details"))),
      m_report(new QPlainTextEdit)
{
    m_button->setCheckable(true);
    m_report->setObjectName(m_button->objectName() + QStringLiteral("Report"));
    m_report->setAccessibleName(translated("Report"));
    m_report->setReadOnly(true);
    m_report->setTabChangesFocus(true);
    m_report->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    m_report->setLineWrapMode(QPlainTextEdit::NoWrap);
    QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    font.setPointSizeF(QWidget::font().pointSizeF());
    m_report->setFont(font);
    m_report->setMinimumHeight(QFontMetrics(font).lineSpacing() * 10);
    m_report->hide();
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(m_button, 0, Qt::AlignLeft);
    column->addWidget(m_report);
    connect(m_button, &QPushButton::toggled, m_report, &QWidget::setVisible);
    hide();
}

void CDetails::setReport(const QString& report)
{
    m_report->setPlainText(report);
    setVisible(!report.isEmpty());
}

} // namespace Kedrin::Add
