#pragma once

#include <QHash>
#include <QMenu>

namespace qt3 {

/// A menu of items with identifiers and check marks. A check mark is changed only by setItemChecked(), never
/// by choosing the item, and QAction::isChecked() of an item always agrees with it. Texts are never
/// truncated, even with a large font.
class PopupMenu : public QMenu
{
    Q_OBJECT

public:
    using QMenu::QMenu;

    /// Appends an unchecked item. `&x` in the text is a mnemonic. Identifiers must be unique.
    void insertItem(const QString& text, int id);

    /// The text as inserted, including `&`; null if the identifier is unknown.
    QString text(int id) const;

    /// False if the identifier is unknown.
    bool isItemChecked(int id) const;

    /// An unknown identifier is ignored. Emits no activatedId().
    void setItemChecked(int id, bool checked);

signals:
    /// The user has chosen an item, by mouse, Return or mnemonic; the menu is closed, the check mark
    /// unchanged.
    void activatedId(int id);

protected:
    void initStyleOption(QStyleOptionMenuItem* option, const QAction* action) const override;

private:
    using QMenu::clear; // would not remove the identifiers

    struct Item
    {
        QAction* action = nullptr;
        QString text;
        bool isChecked = false;
    };

    QHash<int, Item> m_items;
};

} // namespace qt3
