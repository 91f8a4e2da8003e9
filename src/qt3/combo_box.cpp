#include "combo_box.h"

#include "combo_line_edit.h"
#include "fit_font.h"

#include <QFocusEvent>
#include <QItemSelectionModel>
#include <QListView>
#include <QScreen>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QStringListModel>
#include <QStyleOptionComboBox>
#include <QtMath>

#include <algorithm>
#include <limits>
#include <utility>

namespace qt3 {

namespace {

/// Wide enough for "Псалтир" and narrow enough for a narrow tool bar.
constexpr int usualLetters = 7;

/// Enough for a number. Where even that has no room, a tool bar hides the box, and the keyboard does not reach it.
constexpr int fewestLetters = 3;

/// On both sides of the item at which the list opens.
constexpr int measuredItems = 100;

bool isPlain(const QKeyEvent* event)
{
    return !(event->modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier));
}

} // namespace

ComboBox::ComboBox(QWidget* parent) : QComboBox(parent)
{
    auto* edit = new ComboLineEdit(this);
    setLineEdit(edit);
    setCompleter(nullptr);
    setInsertPolicy(NoInsert);

    // Qt looks the text up on Return and when the focus is lost, and reports a choice if it is an item.
    disconnect(edit, &QLineEdit::editingFinished, this, nullptr);
    connect(edit, &QLineEdit::returnPressed, this, &ComboBox::confirmText);
    connect(edit, &ComboLineEdit::extended, this, &ComboBox::complete);
    connect(this, &QComboBox::activated, this, [this](int item) {
        emit activatedItem(item);
        emit activatedText(itemText(item));
    });

    m_items = new QStringListModel(edit);
    exchangeModel(m_items);
}

ComboBox::~ComboBox() { disconnect(m_modelGone); }

void ComboBox::setReturn(Return what) { m_return = what; }

void ComboBox::setKeepsTypedLetters(std::function<bool()> keeps) { m_keepsTyped = std::move(keeps); }

int ComboBox::currentItem() const { return std::max(currentIndex(), 0); }

void ComboBox::setCurrentItem(int item)
{
    if (item >= 0 && item < count())
        setCurrentIndex(item);
}

void ComboBox::clearItems() { setItems({}); }

void ComboBox::setItems(const QStringList& items)
{
    const QSignalBlocker boxBlocker(this);
    const QSignalBlocker editBlocker(lineEdit());
    m_items->setStringList(items);
    exchangeModel(m_items);
    lineEdit()->setText(items.value(0));
}

void ComboBox::setListModel(QAbstractItemModel* model)
{
    QLineEdit* edit = lineEdit();
    const QSignalBlocker boxBlocker(this);
    const QSignalBlocker editBlocker(edit);
    const QString text = edit->text();
    const int cursor = edit->cursorPosition();
    const int selectionStart = edit->selectionStart();
    const int selectionLength = edit->selectionLength();

    if (!model)
        m_items->setStringList({});
    exchangeModel(model ? model : m_items);

    edit->setText(text);
    edit->setCursorPosition(cursor);
    if (selectionStart >= 0 && selectionStart == cursor)
        edit->setSelection(selectionStart + selectionLength, -selectionLength);
    else if (selectionStart >= 0)
        edit->setSelection(selectionStart, selectionLength);
}

void ComboBox::setCurrentText(const QString& text)
{
    const int item = findItem(text, Qt::MatchFixedString | Qt::MatchCaseSensitive);
    if (item >= 0 && itemText(item) == text) // a model may ignore case
        setCurrentItem(item);
    else
        lineEdit()->setText(text);
}

QSize ComboBox::sizeHint() const { return sizeFor(usualLetters); }

QSize ComboBox::minimumSizeHint() const { return sizeFor(fewestLetters); }

QSize ComboBox::sizeFor(int letters) const
{
    // As with the policy AdjustToMinimumContentsLengthWithIcon of the toolkit, but setting that creates the list.
    constexpr int iconGap = 4;
    constexpr int lineGap = 2;
    const QSize icon = iconSize();
    const int width = letters * fontMetrics().horizontalAdvance(u'X') + icon.width() + iconGap;
    const int height = std::max(qCeil(QFontMetricsF(font()).height()), icon.height()) + lineGap;
    QStyleOptionComboBox option;
    initStyleOption(&option);
    return style()->sizeFromContents(QStyle::CT_ComboBox, &option, QSize(width, height), this);
}

void ComboBox::showPopup()
{
    view()->setAccessibleName(accessibleName());
    if (auto* list = qobject_cast<QListView*>(view()))
        list->setUniformItemSizes(true);
    view()->setTextElideMode(Qt::ElideRight);
    const QString text = currentText();
    const bool isCurrent = text.isEmpty() || text == itemText(currentIndex());
    const int item = isCurrent ? -1 : findItem(text, Qt::MatchStartsWith);
    view()->setMinimumWidth(listWidth(item < 0 ? currentItem() : item));
    QComboBox::showPopup();
    if (item < 0)
        return;
    const QModelIndex index = model()->index(item, modelColumn(), rootModelIndex());
    view()->setCurrentIndex(index);
    view()->scrollTo(index, QAbstractItemView::PositionAtTop);
}

/// Measures only the items around one, so that a long list need not be measured as a whole.
int ComboBox::listWidth(int item) const
{
    const QFontMetrics metrics(view()->font());
    int widest = 0;
    for (int i = std::max(item - measuredItems, 0); i < std::min(item + measuredItems, count()); ++i)
        widest = std::max(widest, metrics.horizontalAdvance(itemText(i)));
    const int textMargin = style()->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, view()) + 1;
    const int width =
        widest + 2 * textMargin + 2 * view()->frameWidth() + view()->verticalScrollBar()->sizeHint().width();
    return std::min(width, screen()->availableGeometry().width());
}

void ComboBox::keyPressEvent(QKeyEvent* event)
{
    const bool isUp = event->key() == Qt::Key_Up;
    if ((isUp || event->key() == Qt::Key_Down) && isPlain(event))
        choose((shownItem() >= 0 ? shownItem() : currentItem()) + (isUp ? -1 : 1));
    else
        QComboBox::keyPressEvent(event);
}

void ComboBox::focusOutEvent(QFocusEvent* event)
{
    QComboBox::focusOutEvent(event);
    const QAbstractItemView* list = createdList(); // its first opening is told for another reason once more
    const bool comesBack = event->reason() == Qt::PopupFocusReason ||
                           event->reason() == Qt::MenuBarFocusReason || (list && list->isVisible());
    const QString text = itemText(currentIndex());
    if (m_return == Return::goesToItem && !comesBack && currentText() != text)
        lineEdit()->setText(text);
}

void ComboBox::changeEvent(QEvent* event)
{
    // The toolkit would create the list to give it the font, which it has from the box anyway.
    if (event->type() == QEvent::FontChange)
        QWidget::changeEvent(event);
    else
        QComboBox::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        fitText();
}

void ComboBox::resizeEvent(QResizeEvent* event)
{
    QComboBox::resizeEvent(event);
    fitText();
}

void ComboBox::fitText()
{
    const QSize room(std::numeric_limits<int>::max(), lineEdit()->height());
    const QFont fit = fitFont(font(), {}, room);
    lineEdit()->setFont(fit == font() ? QFont() : fit); // inherited unless reduced
}

void ComboBox::choose(int item)
{
    if (item < 0 || item >= count())
        return;
    setCurrentItem(item);
    emit activatedItem(item);
    emit activatedText(itemText(item));
}

void ComboBox::complete()
{
    QLineEdit* edit = lineEdit();
    const int typedLength = int(edit->text().size());
    int item = findItem(edit->text(), Qt::MatchFixedString);
    if (item < 0)
        item = findItem(edit->text(), Qt::MatchStartsWith | Qt::MatchWrap, currentItem());
    if (item < 0)
        return;
    const QString text =
        m_keepsTyped && m_keepsTyped() ? edit->text() + itemText(item).mid(typedLength) : itemText(item);
    edit->setText(text);
    edit->setSelection(int(text.size()), typedLength - int(text.size()));
}

void ComboBox::confirmText()
{
    if (m_return == Return::givesText)
        emit activatedText(currentText());
    else
        choose(shownItem());
}

void ComboBox::exchangeModel(QAbstractItemModel* model)
{
    disconnect(m_modelGone);
    if (model != m_items)
        m_modelGone = connect(model, &QObject::destroyed, this, [this] { setListModel(nullptr); });
    const QAbstractItemView* list = createdList();
    const QItemSelectionModel* selection = list ? list->selectionModel() : nullptr;
    setModel(model);
    if (list && list->selectionModel() != selection)
        delete selection; // the view does not delete it, and its parent is the model, which may live on
    setCurrentItem(0);
}

/// Null before the list is opened for the first time; view() would create it, which takes time at the start.
QAbstractItemView* ComboBox::createdList() const { return findChild<QAbstractItemView*>(); }

/// The first item that matches, from `start` on; -1 when there is none.
int ComboBox::findItem(const QString& text, Qt::MatchFlags flags, int start) const
{
    const QModelIndex first = model()->index(start, modelColumn(), rootModelIndex());
    const QModelIndexList found = model()->match(first, Qt::EditRole, text, 1, flags);
    return found.isEmpty() ? -1 : found.constFirst().row();
}

/// The item whose text is in the box, preferably the current one; -1 if the text is not an item.
int ComboBox::shownItem() const
{
    const QString text = currentText();
    return text == itemText(currentIndex()) ? currentIndex() : findItem(text, Qt::MatchFixedString);
}

} // namespace qt3
