#include "popup_menu.h"

#include <QAction>
#include <QStyleOptionMenuItem>

#include <algorithm>

namespace qt3 {

void PopupMenu::insertItem(const QString& text, int id)
{
    auto* action = new QAction(text, this);
    action->setCheckable(true);
    m_items.insert(id, {action, text, false});
    // A checkable action toggles itself before it emits the signal; undo this first.
    connect(action, &QAction::toggled, this, [this, id] {
        const Item item = m_items.value(id);
        item.action->setChecked(item.isChecked);
    });
    connect(action, &QAction::triggered, this, [this, id] { emit activatedId(id); });
    addAction(action); // last: a menu looks at every change of its items
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

/// The style draws the column of check marks with 0.79 of the row's height, but measures the menu with a
/// column of fixed width: with a large font the longest text would be truncated.
void PopupMenu::initStyleOption(QStyleOptionMenuItem* option, const QAction* action) const
{
    QMenu::initStyleOption(option, action);
    const QSize text(0, option->fontMetrics.height());
    const int row = style()->sizeFromContents(QStyle::CT_MenuItem, option, text, this).height();
    option->maxIconWidth = std::max(option->maxIconWidth, row * 4 / 5 + 1);
}

} // namespace qt3
