#pragma once

#include <QComboBox>

#include <functional>

class QStringListModel;

namespace qt3 {

/// An editable box over a list of items, counted from 0. The current item and the text in the box are two
/// things: typing changes only the text, the current item changes by a choice or by setCurrentItem().
///
/// Completion: a character typed at the end of the text shows the first item, from the current one on and
/// wrapping, that begins with the text (ignoring case), its added part selected; but an item that is the text
/// wins, so that "2" is not taken for "20". The current item stays. The typed letters become the item's, unless
/// setKeepsTypedLetters() says otherwise.
///
/// A choice (from the list, by Up, Down or the wheel) makes the item current, shows it, and emits
/// activatedItem() and then activatedText(). Up and Down start at the item whose text is shown, at the ends
/// they do nothing. Nothing is emitted when the focus leaves.
///
/// A box too low for its font, by a fixed geometry, shows its text in a font reduced to fit; font() stays.
///
/// The list opens at the first item that begins with the text in the box, and wider than the box where the
/// items around that one need it. Neither an exchange of the list nor sizeHint() walks through the items.
class ComboBox : public QComboBox
{
    Q_OBJECT

public:
    /// What Return does.
    enum class Return
    {
        /// Text that is an item (ignoring case, typed or completed) is a choice of that item; other text does
        /// nothing. When the focus leaves, the box shows its current item again, so that a text nobody
        /// confirmed does not stay (an open pop-up menu or list does not count as leaving).
        goesToItem,
        /// Emits activatedText() with the text as it stands, whether item or not, empty or not. The current
        /// item stays, and so does the text when the focus leaves.
        givesText
    };

    explicit ComboBox(QWidget* parent = nullptr);
    ~ComboBox() override;

    /// goesToItem until something else is set.
    void setReturn(Return what);

    /// Asked at each completion: whether the typed letters stay as they were typed and only the rest is the item's.
    /// Without it they do not.
    void setKeepsTypedLetters(std::function<bool()> keeps);

    /// The current item; 0 for an empty box, never -1.
    int currentItem() const;

    /// Makes an item current and shows it, also when it is current and the text in the box is another. A
    /// number that is no item is ignored: current item and text stay. Emits neither activatedItem() nor
    /// activatedText().
    void setCurrentItem(int item);

    /// Removes all items and the text in the box. Emits nothing at all.
    void clearItems();

    /// Replaces all items; the first becomes current and shows itself. No items: as clearItems(). Emits
    /// nothing.
    void setItems(const QStringList& items);

    /// Puts another list behind the box, in constant time. The text in the box stays, its selection and
    /// cursor too; the current item is then 0. Emits nothing at all.
    /// @param model  flat, and its data are the same for Qt::EditRole as for Qt::DisplayRole; stays the
    ///               caller's and is no child of the box. It may be destroyed while it is in the box, which
    ///               then has no items, and the text stays. To change the list exchange the model: a model
    ///               that resets itself takes the text along. Its match() finds completions, so a sorted list
    ///               may do better than the linear search. Null: no items.
    void setListModel(QAbstractItemModel* model);

    /// The first item with exactly this text becomes current; without one only the text in the box changes.
    /// Emits neither activatedItem() nor activatedText().
    void setCurrentText(const QString& text);

    void showPopup() override;

signals:
    /// An item was chosen, even when it was the current one.
    void activatedItem(int item);

    /// The item's text, after activatedItem(); or the text on Return (Return::givesText).
    void activatedText(const QString& text);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void changeEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void choose(int item);
    void complete();
    void confirmText();
    void fitText();
    int listWidth(int item) const;
    void exchangeModel(QAbstractItemModel* model);
    int findItem(const QString& text, Qt::MatchFlags flags, int start = 0) const;
    int shownItem() const;

    Return m_return = Return::goesToItem;
    std::function<bool()> m_keepsTyped;
    QStringListModel*
        m_items; // child of the line edit: the box itself would delete its own child on an exchange
    QMetaObject::Connection m_modelGone;
};

} // namespace qt3
