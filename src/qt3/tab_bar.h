#pragma once

#include <QHash>
#include <QList>
#include <QTabBar>

namespace qt3 {

/// A tab bar whose tabs keep an identifier for life. Identifiers count 0, 1, 2, ... in order of adding and
/// are never handed out again, not even when the bar has become empty; an index is the place in the bar, from
/// 0, and changes as tabs to the left come and go.
///
/// When the current tab is removed, the one current before it becomes current again (of tabs that were never
/// current, the one added first), and nobody is told. What the user or other code does through Qt's own
/// indices ends in selected() as well. The current tab chosen again is told apart from that, by chosenAgain(). The
/// focus comes by Tab only, the wheel switches no tab.
class TabBar : public QTabBar
{
    Q_OBJECT

public:
    explicit TabBar(QWidget* parent = nullptr);

    /// Appends a tab and gives its identifier. The first tab of an empty bar is current at once; a later one
    /// is not. Emits nothing. `&x` in the label makes Alt+x select the tab.
    int addTab(const QString& label);

    /// Like addTab(), before the tab at `index`; appends when there is no such index.
    int insertTab(const QString& label, int index);

    /// Removes a tab; an unknown identifier is ignored. Emits nothing, even when another tab becomes current.
    void removeId(int id);

    /// The identifier of the current tab; -1 for an empty bar.
    int currentTab() const;

    /// Makes a tab current and emits selected(), before returning. Does nothing and emits nothing for the tab
    /// that is current and for an unknown identifier.
    void setCurrentTab(int id);

    /// The identifier of the tab at an index; -1 when there is none.
    int idAt(int index) const;

    /// The index of a tab; -1 when the identifier is unknown.
    int indexOf(int id) const;

    /// The label as it was given, `&` included (tabText() may be changed by a desktop's style); null when the
    /// identifier is unknown.
    QString label(int id) const;

signals:
    /// Another tab has become current: by setCurrentTab(), a press of the left button, Left or Right, a
    /// mnemonic, or because the current one was disabled.
    void selected(int id);

    /// The current tab was chosen although it is current: by a press of the left button, by Space, Return or Enter
    /// while the bar has the focus, or through the accessibility interface.
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
