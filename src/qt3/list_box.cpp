#include "list_box.h"

#include "fit_font.h"

#include <QFocusEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QStyledItemDelegate>

#include <algorithm>

namespace qt3 {

namespace {

/// Paints and measures rows with the list's paintedFont().
class FitRowDelegate : public QStyledItemDelegate
{
public:
    explicit FitRowDelegate(ListBox* list) : QStyledItemDelegate(list), m_list(*list) {}

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override
    {
        QStyledItemDelegate::initStyleOption(option, index);
        option->font = m_list.paintedFont();
        option->fontMetrics = QFontMetrics(option->font);
    }

private:
    const ListBox& m_list;
};

/// The width for the text of a row, always without that of the scroll bar: if rows grew when it disappears,
/// it would appear again.
int rowRoom(const ListBox& list)
{
    const QStyle& style = *list.style();
    const int textMargin = style.pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, &list) + 1;
    return list.width() - 2 * list.frameWidth() - list.verticalScrollBar()->sizeHint().width() -
           2 * textMargin;
}

} // namespace

ListBox::ListBox(QWidget* parent) : QListView(parent)
{
    setSelectionMode(SingleSelection);
    setEditTriggers(NoEditTriggers);
    setUniformItemSizes(true);
    setItemDelegate(new FitRowDelegate(this));
    fitRows();
}

void ListBox::setWidestRows(const QStringList& rows)
{
    m_widestRows = rows;
    fitRows();
}

void ListBox::fitRows()
{
    const QFontMetrics metrics(font());
    const auto narrower = [&](const QString& a, const QString& b) {
        return metrics.horizontalAdvance(a) < metrics.horizontalAdvance(b);
    };
    const auto widest = std::max_element(m_widestRows.begin(), m_widestRows.end(), narrower);
    const QFont fit =
        widest == m_widestRows.end() ? font() : fitFont(font(), *widest, {rowRoom(*this), metrics.height()});
    if (fit == m_paintedFont)
        return;
    m_paintedFont = fit;
    scheduleDelayedItemsLayout();
}

void ListBox::changeEvent(QEvent* event)
{
    QListView::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        fitRows();
}

void ListBox::resizeEvent(QResizeEvent* event)
{
    QListView::resizeEvent(event);
    fitRows();
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
    // Qt makes the first row current even for the mouse, before the press determines the row.
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
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    const bool chooses =
        currentIndex().isValid() && (isReturn || (event->key() == Qt::Key_Space && !isCurrentRowSelected()));
    if (!chooses) {
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
        return; // below the last row: keep the selection
    const bool isAgain = pressed == currentIndex();
    QListView::mousePressEvent(event);
    if (isAgain)
        emit highlighted(pressed.row());
}

bool ListBox::isCurrentRowSelected() const { return selectionModel()->isSelected(currentIndex()); }

} // namespace qt3
