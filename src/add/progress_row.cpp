#include "progress_row.h"

#include "messages.h"
#include "shown_text.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>

namespace Kedrin::Add {

using ModTool::translatable;

CProgressRow::CProgressRow(const char* barName, const char* buttonName)
    : m_name(plainLabel()),
      m_bar(new QProgressBar),
      m_cancel(button(buttonName, translatable("&Cancel")))
{
    m_bar->setObjectName(QString::fromLatin1(barName));
    m_bar->setAccessibleName(translated("Progress"));
    m_name->setObjectName(m_bar->objectName() + QStringLiteral("Name"));
    auto* row = new QHBoxLayout;
    row->addWidget(m_bar, 1);
    row->addWidget(m_cancel);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(m_name);
    column->addLayout(row);
    connect(m_cancel, &QPushButton::clicked, this, &CProgressRow::cancel);
    setFocusProxy(m_cancel);
}

void CProgressRow::begin()
{
    m_name->clear();
    m_bar->setRange(0, 0);
    m_cancel->setEnabled(true);
}

void CProgressRow::tell(const QString& name, int percent)
{
    if (m_cancel->isEnabled())
        m_name->setText(name);
    m_bar->setRange(0, percent == 0 ? 0 : 100); // without end until there is something to show
    m_bar->setValue(percent);
}

void CProgressRow::cancel()
{
    m_name->setText(translated("Cancelling..."));
    m_cancel->setEnabled(false);
    emit cancelled();
}

} // namespace Kedrin::Add
