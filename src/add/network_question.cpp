#include "network_question.h"

#include "messages.h"
#include "shown_text.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include <utility>

namespace Kedrin::Add {

using namespace ModTool;

CNetworkQuestion::CNetworkQuestion()
    : m_text(plainLabel()),
      m_no(button("networkNo", translatable("N&ot now")))
{
    setFrameShape(QFrame::StyledPanel);
    hide();
    m_text->setObjectName(QStringLiteral("networkQuestion"));
    QPushButton* yes = button("networkYes", translatable("Use the &network"));
    m_no->setShortcut(Qt::Key_Escape);
    auto* row = new QHBoxLayout;
    row->addWidget(yes);
    row->addWidget(m_no);
    row->addStretch();
    auto* column = new QVBoxLayout(this);
    column->addWidget(m_text);
    column->addLayout(row);
    connect(yes, &QPushButton::clicked, this, &CNetworkQuestion::allow);
    connect(m_no, &QPushButton::clicked, this, &CNetworkQuestion::refuse);
}

void CNetworkQuestion::ask(const std::string& address, std::function<void()> allowed)
{
    m_address = address;
    m_allowed = std::move(allowed);
    if (m_known.contains(address))
        return allow();
    show();
    showText(*m_text, fromUtf8(message("The list of Bibles is fetched over the network from %s, and so is "
                                       "each Bible that you add from it.",
                                       address)));
}

void CNetworkQuestion::focusNo() { m_no->setFocus(); }

void CNetworkQuestion::allow()
{
    m_known.insert(m_address);
    m_allowed();
    hide(); // after that, so that the focus goes to what is shown by then
}

void CNetworkQuestion::refuse()
{
    hide();
    emit refused();
}

} // namespace Kedrin::Add
