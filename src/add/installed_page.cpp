#include "installed_page.h"

#include "background.h"
#include "details.h"
#include "messages.h"
#include "module_state.h"
#include "shown_text.h"

#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace Kedrin::Add {

using namespace ModTool;

namespace {

enum Column
{
    titleColumn,
    stateColumn,
    ownerColumn,
    nameColumn
};

constexpr int reportRole = Qt::UserRole;

QTreeWidget* makeList()
{
    return rowList("modules", translatable("Installed translations"),
                   {translated("Title"), translated("State"), translated("For"), translated("Name")});
}

} // namespace

CInstalledPage::CInstalledPage(CBackground& background)
    : m_background(background),
      m_message(plainLabel(true)),
      m_list(makeList()),
      m_first(button("makeFirst", translatable("&Open first"))),
      m_remove(button("remove", translatable("&Remove..."))),
      m_question(new QFrame),
      m_questionText(plainLabel()),
      m_keep(button("removeNo", translatable("&Keep"))),
      m_details(new CDetails("installedDetails"))
{
    m_message->setObjectName(QStringLiteral("installedMessage"));
    auto* column = new QVBoxLayout(this);
    column->addWidget(m_message);
    column->addWidget(m_list, 1);
    column->addWidget(makeButtons());
    fillQuestion();
    column->addWidget(m_question);
    column->addWidget(m_details);
    connect(m_list, &QTreeWidget::itemSelectionChanged, this, &CInstalledPage::showSelected);
    refresh();
}

QWidget* CInstalledPage::makeButtons()
{
    auto* whole = new QWidget;
    auto* row = new QHBoxLayout(whole);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(m_first);
    row->addWidget(m_remove);
    row->addStretch();
    connect(m_first, &QPushButton::clicked, this, &CInstalledPage::makeFirst);
    connect(m_remove, &QPushButton::clicked, this, &CInstalledPage::askToRemove);
    return whole;
}

void CInstalledPage::fillQuestion()
{
    m_question->setFrameShape(QFrame::StyledPanel);
    m_question->hide();
    m_questionText->setObjectName(QStringLiteral("question"));
    m_keep->setShortcut(Qt::Key_Escape);
    QPushButton* yes = button("removeYes", translatable("Re&move"));
    auto* row = new QHBoxLayout;
    row->addWidget(yes);
    row->addWidget(m_keep);
    row->addStretch();
    auto* column = new QVBoxLayout(m_question);
    column->addWidget(m_questionText);
    column->addLayout(row);
    connect(yes, &QPushButton::clicked, this, &CInstalledPage::remove);
    connect(m_keep, &QPushButton::clicked, this, &CInstalledPage::endQuestion);
}

void CInstalledPage::refresh(const QString& text)
{
    ++m_listNumber;
    m_background.forgetWaiting();
    m_modules = installedModules();
    m_list->clear();
    for (const InstalledModule& module : m_modules) {
        auto* item = new QTreeWidgetItem(m_list);
        item->setText(titleColumn, titleOf(module));
        item->setText(stateColumn, translated("being checked"));
        item->setText(ownerColumn, module.isOwn ? translated("you") : translated("all users"));
        item->setText(nameColumn, fromUtf8(module.name));
    }
    const bool isEmpty = m_modules.empty() && text.isEmpty();
    showText(*m_message, isEmpty ? translated("No translation is installed.") : text);
    endQuestion();
    showSelected();
    for (std::size_t index = 0; index < m_modules.size(); ++index)
        checkNext(index);
}

void CInstalledPage::checkNext(std::size_t index)
{
    const auto use = [this, index, number = m_listNumber](const ModuleState& state) {
        if (number == m_listNumber)
            showState(index, state);
    };
    m_background.run([module = m_modules[index],
                      use]() -> CBackground::Use { return [use, state = stateOf(module)] { use(state); }; },
                     [use](const QString& reason) {
                         use({translated("cannot be read"), reason});
                     });
}

void CInstalledPage::showState(std::size_t index, const ModuleState& state)
{
    QTreeWidgetItem* item = m_list->topLevelItem(static_cast<int>(index));
    item->setText(stateColumn, state.summary);
    item->setData(stateColumn, reportRole, state.report);
    if (item->isSelected())
        m_details->setReport(state.report);
}

int CInstalledPage::selectedRow() const
{
    const QList<QTreeWidgetItem*> selected = m_list->selectedItems();
    return selected.isEmpty() ? -1 : m_list->indexOfTopLevelItem(selected.first());
}

void CInstalledPage::showSelected()
{
    const int row = selectedRow();
    const bool isOwn = row >= 0 && m_modules[static_cast<std::size_t>(row)].isOwn;
    m_first->setEnabled(isOwn);
    m_remove->setEnabled(isOwn);
    m_question->hide();
    m_details->setReport(row < 0 ? QString()
                                 : m_list->topLevelItem(row)->data(stateColumn, reportRole).toString());
}

void CInstalledPage::change(void (*operation)(const std::string&), const char* done)
{
    const std::string name = m_modules[static_cast<std::size_t>(selectedRow())].name;
    try {
        operation(name);
        refresh(fromUtf8(message(done, name)));
    } catch (const std::exception& exception) {
        refresh(messageOf(exception));
    }
    m_list->setFocus();
}

void CInstalledPage::makeFirst()
{
    change([](const std::string& name) { ModTool::makeFirst(name); },
           translatable("The next time Kedrin is started, it opens \"%s\"."));
}

void CInstalledPage::askToRemove()
{
    const InstalledModule& module = m_modules[static_cast<std::size_t>(selectedRow())];
    m_questionText->setText(
        fromUtf8(message("Remove \"%s\" from this computer? Its files are deleted.", module.name)));
    m_question->show();
    m_keep->setFocus();
}

void CInstalledPage::remove() { change(&removeOwnModule, translatable("\"%s\" has been removed.")); }

void CInstalledPage::endQuestion()
{
    if (m_question->isVisible())
        m_list->setFocus();
    m_question->hide();
}

} // namespace Kedrin::Add
