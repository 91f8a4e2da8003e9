#include "popup_menu.h"

#include <QAction>

namespace qt3 {

void PopupMenu::insertItem(const QString& text, int id)
{
    QAction* action = addAction(text);
    action->setCheckable(true);
    m_items.insert(id, {action, text, false});
    // A checkable action flips itself before it reports the choice: undone before anybody asks.
    connect(action, &QAction::toggled, this, [this, id] {
        const Item item = m_items.value(id);
        item.action->setChecked(item.isChecked);
    });
    connect(action, &QAction::triggered, this, [this, id] { emit activatedId(id); });
}

QString PopupMenu::text(int id) const { return m_items.value(id).text; }

bool PopupMenu::isItemChecked(int id) const { return m_items.value(id).isChecked; }

void PopupMenu::setItemChecked(int id, bool checked)
{
    const auto item = m_items.find(id);
    if (item == m_items.end())
        return;
    item->isChecked = checked;
    item->action->setChecked(checked);
}

} // namespace qt3
