#pragma once

#include <QHash>
#include <QList>
#include <QTabBar>

namespace qt3 {

/// A tab bar whose tabs have permanent identifiers. Identifiers are 0, 1, 2, ... in order of adding and are
/// never reused, even after the bar was empty; an index is the position in the bar, from 0, and changes when
/// tabs to the left are added or removed.
///
/// When the current tab is removed, the previously current one becomes current again (of tabs that were never
/// current, the one added first), without a signal. Changes by the user or through Qt's own indices emit
/// selected() too. Choosing the current tab again emits chosenAgain() instead. The bar gets focus only by
/// Tab; the wheel does not switch tabs.
class TabBar : public QTabBar
{
    Q_OBJECT

public:
    explicit TabBar(QWidget* parent = nullptr);

    /// Appends a tab and returns its identifier. The first tab of an empty bar becomes current; later ones do
    /// not. Emits nothing. `&x` in the label makes Alt+x select the tab.
    int addTab(const QString& label);

    /// Like addTab(), before the tab at `index`; appends if there is no such index.
    int insertTab(const QString& label, int index);

    /// Removes a tab; an unknown identifier is ignored. Emits nothing, even if another tab becomes current.
    void removeId(int id);

    /// The identifier of the current tab; -1 for an empty bar.
    int currentTab() const;

    /// Makes a tab current and emits selected(), before returning. Does nothing for the current tab or an
    /// unknown identifier.
    void setCurrentTab(int id);

    /// The identifier of the tab at an index; -1 if there is none.
    int idAt(int index) const;

    /// The index of a tab; -1 if the identifier is unknown.
    int indexOf(int id) const;

    /// The original label, including `&` (a desktop style may change tabText()); null if the identifier is
    /// unknown.
    QString label(int id) const;

signals:
    /// Another tab has become current: by setCurrentTab(), a press of the left button, Left or Right, a
    /// mnemonic, or because the current one was disabled.
    void selected(int id);

    /// The current tab was chosen again: by a press of the left button, by Space, Return or Enter while the
    /// bar has the focus, or through the accessibility interface.
    void chosenAgain(int id);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    // These would remove or move a tab without its identifier.
    using QTabBar::moveTab;
    using QTabBar::removeTab;
    using QTabBar::setMovable;
    using QTabBar::setTabText;

    friend class AccessibleTab;

    void choose(int index);
    void makeCurrent(int id);
    void showCurrent();

    int m_nextId = 0;
    QList<int> m_ids;     // by index
    QList<int> m_stacked; // in painting order: the last one is current, a new one goes first
    QHash<int, QString> m_labels;
};

} // namespace qt3
