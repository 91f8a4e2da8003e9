#include "sword_page.h"

#include "background.h"
#include "messages.h"
#include "shown_text.h"

#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

namespace Kedrin::Add {

using namespace ModTool;

namespace {

/// Names and titles.
std::vector<std::pair<std::string, std::string>> installedBibles(const ISword& sword)
{
    const std::unique_ptr<ISwordTexts> library = sword.installedTexts();
    std::vector<std::pair<std::string, std::string>> bibles;
    for (const std::string& name : library->bibles())
        bibles.emplace_back(name, library->title(name));
    return bibles;
}

} // namespace

CSwordPage::CSwordPage(CBackground& background, const ISword& sword)
    : m_background(background),
      m_sword(sword),
      m_note(plainLabel()),
      m_list(new QListWidget),
      m_add(button("addSword", translatable("&Add...")))
{
    m_note->setObjectName(QStringLiteral("swordNote"));
    m_note->setText(translated("Looking for Bibles..."));
    m_list->setObjectName(QStringLiteral("swordBibles"));
    m_list->setAccessibleName(translated("Bibles of SWORD programs"));
    m_list->setWordWrap(true);
    m_list->setEnabled(false);
    m_add->setEnabled(false);
    auto* column = new QVBoxLayout(this);
    column->addWidget(m_note);
    column->addWidget(m_list, 1);
    column->addWidget(m_add, 0, Qt::AlignRight);
    connect(m_list, &QListWidget::itemSelectionChanged, this,
            [this] { m_add->setEnabled(!m_list->selectedItems().isEmpty()); });
    connect(m_list, &QListWidget::itemActivated, this, &CSwordPage::choose);
    connect(m_add, &QPushButton::clicked, this, &CSwordPage::choose);
}

void CSwordPage::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    if (std::exchange(m_isAsked, true))
        return;
    m_background.run(
        [this]() -> CBackground::Use { return [this, bibles = installedBibles(m_sword)] { fill(bibles); }; },
        [this](const QString& reason) { m_note->setText(reason); });
}

void CSwordPage::fill(const std::vector<std::pair<std::string, std::string>>& bibles)
{
    for (const auto& [name, title] : bibles) {
        auto* item = new QListWidgetItem(
            fromUtf8(title).simplified() + QStringLiteral(" (%1)").arg(fromUtf8(name)), m_list);
        item->setData(Qt::UserRole, fromUtf8(name));
    }
    m_list->setEnabled(!bibles.empty());
    m_list->setCurrentRow(0);
    m_note->setText(
        translated(bibles.empty() ? translatable("No Bible for SWORD programs is installed on this computer.")
                                  : translatable("These Bibles are installed on this computer for SWORD "
                                                 "programs. Kedrin can show them too.")));
}

void CSwordPage::choose()
{
    const QList<QListWidgetItem*> selected = m_list->selectedItems();
    if (!selected.isEmpty())
        emit chosen(toUtf8(selected.first()->data(Qt::UserRole).toString()));
}

} // namespace Kedrin::Add
