#pragma once

#include <QComboBox>

#include <functional>

class QStringListModel;

namespace qt3 {

/// An editable box over a list of items, counted from 0. The current item and the text in the box are
/// independent: typing changes only the text, the current item changes by a choice or by setCurrentItem().
///
/// Completion: a character typed at the end of the text shows the first item, from the current one on and
/// wrapping, that begins with the text (ignoring case), with the added part selected; but an item equal to
/// the text takes precedence, so that "2" is not completed to "20". The current item is unchanged. The typed
/// letters are replaced by the item's, unless setKeepsTypedLetters() prevents it.
///
/// A choice (from the list, by Up, Down or the wheel) makes the item current, shows it, and emits
/// activatedItem() and then activatedText(). Up and Down start at the item whose text is shown; at the ends
/// they do nothing. Nothing is emitted when the focus is lost.
///
/// A box whose fixed geometry is too low for its font shows its text in a font reduced to fit; font() is
/// unchanged.
///
/// The list opens at the first item that begins with the text in the box, wider than the box if the items
/// around that one need it, but not wider than the screen; it is created then. Neither replacing the list nor
/// sizeHint(), which has room for seven letters, reads all items. minimumSizeHint() has room for three.
class ComboBox : public QComboBox
{
    Q_OBJECT

public:
    /// What Return does.
    enum class Return
    {
        /// Text that is an item (ignoring case, typed or completed) is a choice of that item; other text does
        /// nothing. When the focus is lost, the box shows its current item again, so that an unconfirmed text
        /// does not stay (a menu bar, an open pop-up menu or list does not count as a loss of focus).
        goesToItem,
        /// Emits activatedText() with the text as it is, whether it is an item or not, even if empty. The
        /// current item is unchanged, and so is the text when the focus is lost.
        givesText
    };

    explicit ComboBox(QWidget* parent = nullptr);
    ~ComboBox() override;

    /// The default is goesToItem.
    void setReturn(Return what);

    /// Called at each completion: whether to keep the typed letters and take only the rest from the item.
    /// Without it they are replaced.
    void setKeepsTypedLetters(std::function<bool()> keeps);

    /// The current item; 0 for an empty box, never -1.
    int currentItem() const;

    /// Makes an item current and shows it, even if it is already current but the text in the box differs. A
    /// number that is not an item is ignored: current item and text are unchanged. Emits neither
    /// activatedItem() nor activatedText().
    void setCurrentItem(int item);

    /// Removes all items and the text in the box. Emits nothing.
    void clearItems();

    /// Replaces all items; the first becomes current and is shown. Without items: as clearItems(). Emits
    /// nothing.
    void setItems(const QStringList& items);

    /// Replaces the list of the box, in constant time. The text in the box, its selection and cursor are
    /// unchanged; the current item is then 0. Emits nothing.
    /// @param model  flat, with the same data for Qt::EditRole as for Qt::DisplayRole; owned by the caller
    ///               and not a child of the box. It may be destroyed while the box uses it; the box then has
    ///               no items, and the text is unchanged. To change the list, set another model: a model that
    ///               resets itself clears the text. Its match() finds completions, so a sorted list may be
    ///               faster than the linear search. Null: no items.
    void setListModel(QAbstractItemModel* model);

    /// The first item with exactly this text becomes current; if there is none, only the text in the box
    /// changes. Emits neither activatedItem() nor activatedText().
    void setCurrentText(const QString& text);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    void showPopup() override;

signals:
    /// An item was chosen, even if it was the current one.
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
    QSize sizeFor(int letters) const;
    int listWidth(int item) const;
    void exchangeModel(QAbstractItemModel* model);
    QAbstractItemView* createdList() const;
    int findItem(const QString& text, Qt::MatchFlags flags, int start = 0) const;
    int shownItem() const;

    Return m_return = Return::goesToItem;
    std::function<bool()> m_keepsTyped;
    // a child of the line edit: the box would delete a child of its own when the model is replaced
    QStringListModel* m_items;
    QMetaObject::Connection m_modelGone;
};

} // namespace qt3
