#pragma once

#include <QHash>
#include <QMenu>

namespace qt3 {

/// A menu of items with identifiers and check marks. A check mark is plain state: only setItemChecked()
/// changes it, never the choice of the item, and QAction::isChecked() of an item always tells the same. A text is
/// never cut for the sake of a large font.
class PopupMenu : public QMenu
{
    Q_OBJECT

public:
    using QMenu::QMenu;

    /// Appends an unchecked item. `&x` in the text is a mnemonic. An identifier is given once.
    void insertItem(const QString& text, int id);

    /// The text as inserted, `&` included; null when the identifier is unknown.
    QString text(int id) const;

    /// False when the identifier is unknown.
    bool isItemChecked(int id) const;

    /// An unknown identifier is ignored. Emits no activatedId().
    void setItemChecked(int id, bool checked);

signals:
    /// The user has chosen an item, by mouse, Return or mnemonic; the menu is closed, the check mark as
    /// before.
    void activatedId(int id);

protected:
    void initStyleOption(QStyleOptionMenuItem* option, const QAction* action) const override;

private:
    using QMenu::clear; // would leave the identifiers behind

    struct Item
    {
        QAction* action = nullptr;
        QString text;
        bool isChecked = false;
    };

    QHash<int, Item> m_items;
};

} // namespace qt3
