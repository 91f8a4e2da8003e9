#include "list_box.h"

#include <QFocusEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QSignalBlocker>

namespace qt3 {

ListBox::ListBox(QWidget* parent) : QListView(parent)
{
    setSelectionMode(SingleSelection);
    setEditTriggers(NoEditTriggers);
    setUniformItemSizes(true);
}

void ListBox::resetRows()
{
    if (hasFocus() && model() && model()->rowCount(rootIndex()) > 0)
        selectionModel()->setCurrentIndex(model()->index(0, modelColumn(), rootIndex()),
                                          QItemSelectionModel::NoUpdate);
}

int ListBox::currentItem() const { return currentIndex().row(); }

void ListBox::setCurrentItem(int row)
{
    if (model() && row >= 0 && row < model()->rowCount(rootIndex()))
        setCurrentIndex(model()->index(row, modelColumn(), rootIndex()));
}

void ListBox::currentChanged(const QModelIndex& current, const QModelIndex& previous)
{
    QListView::currentChanged(current, previous);
    if (current.isValid())
        emit highlighted(current.row());
}

void ListBox::focusInEvent(QFocusEvent* event)
{
    // Qt makes a first row current even for the mouse, before the press says which one is meant.
    if (event->reason() == Qt::MouseFocusReason && currentItem() < 0 && selectionModel()) {
        const QSignalBlocker blocker(this);
        QListView::focusInEvent(event);
        selectionModel()->clearCurrentIndex();
        return;
    }
    QListView::focusInEvent(event);
    if (currentItem() < 0)
        resetRows();
}

void ListBox::keyPressEvent(QKeyEvent* event)
{
    const bool confirms =
        event->key() == Qt::Key_Space || event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (!confirms || !isRowCurrentButUnselected(currentIndex())) {
        QListView::keyPressEvent(event);
        return;
    }
    setCurrentIndex(currentIndex());
    emit highlighted(currentItem());
}

void ListBox::mousePressEvent(QMouseEvent* event)
{
    const QModelIndex pressed = indexAt(event->position().toPoint());
    if (!pressed.isValid())
        return; // below the last row: the selection stays
    const bool isAgain = isRowCurrentButUnselected(pressed);
    QListView::mousePressEvent(event);
    if (isAgain)
        emit highlighted(pressed.row());
}

bool ListBox::isRowCurrentButUnselected(const QModelIndex& index) const
{
    return index.isValid() && index == currentIndex() && !selectionModel()->isSelected(index);
}

} // namespace qt3
