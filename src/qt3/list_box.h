#pragma once

#include <QListView>

namespace qt3 {

/// A list over a flat model (setModel(), owned by the caller), with at most one current row. All rows have
/// the height of the first one, so a list of any length is shown at once.
///
/// The rows of setWidestRows() are never truncated at the right: if the font is too large for them, all rows
/// are painted with a font reduced to fit; font() is unchanged.
///
/// highlighted() follows the current row; a list that is emptied or refilled emits nothing unless it has the
/// focus.
class ListBox : public QListView
{
    Q_OBJECT

public:
    explicit ListBox(QWidget* parent = nullptr);

    /// To be called after the model was reset: no row is current and nothing is emitted, except if the list
    /// has the focus and there are rows: then row 0 becomes current, unselected, and highlighted(0) is
    /// emitted.
    void resetRows();

    /// Texts that have to fit into the list's width next to a scroll bar. If there are none, rows use font().
    void setWidestRows(const QStringList& rows);

    /// The font of the painted rows.
    QFont paintedFont() const { return m_paintedFont; }

    /// The current row, from 0; -1 when none is current.
    int currentItem() const;

    /// Makes a row current and selected and emits highlighted() if it was not current. A number that is not a
    /// row is ignored.
    void setCurrentItem(int row);

signals:
    /// A row became current: by a press of any mouse button, dragging over it, a key, setCurrentItem(); or
    /// row 0 when the list gets focus other than by mouse and no row is current. Also emitted when the
    /// current row is chosen again: by a press, by Return, or, while it is not selected, by Space. Never -1.
    void highlighted(int row);

protected:
    void changeEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    void focusInEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

private:
    void fitRows();
    bool isCurrentRowSelected() const;

    QStringList m_widestRows;
    QFont m_paintedFont;
};

} // namespace qt3
