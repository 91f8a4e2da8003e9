#pragma once

#include <QAccessibleWidget>

#include <map>

namespace qt3 {

class TabBar;

/// One tab for assistive technology. Pressing it chooses the tab, even the current one.
class AccessibleTab : public QAccessibleInterface, public QAccessibleActionInterface
{
public:
    AccessibleTab(TabBar* bar, int index) : m_bar(bar), m_index(index) {}

    bool isValid() const override;
    QObject* object() const override { return nullptr; }
    QWindow* window() const override;
    QAccessibleInterface* parent() const override;
    QAccessibleInterface* child(int) const override { return nullptr; }
    QAccessibleInterface* childAt(int, int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface*) const override { return -1; }
    QString text(QAccessible::Text what) const override;
    void setText(QAccessible::Text, const QString&) override {}
    QRect rect() const override;
    QAccessible::Role role() const override { return QAccessible::PageTab; }
    QAccessible::State state() const override;
    void* interface_cast(QAccessible::InterfaceType type) override;

    QStringList actionNames() const override;
    void doAction(const QString& name) override;
    QStringList keyBindingsForAction(const QString& name) const override;

private:
    TabBar* m_bar;
    int m_index;
};

/// A TabBar for assistive technology: its tabs, then the buttons that scroll them. The toolkit's own
/// interface does nothing when the current tab is pressed.
class AccessibleTabBar : public QAccessibleWidget
{
public:
    /// Installs this interface for every TabBar. One call is enough.
    static void install();

    explicit AccessibleTabBar(TabBar* bar);
    ~AccessibleTabBar() override;
    QAccessibleInterface* child(int index) const override;
    QAccessibleInterface* focusChild() const override;
    int childCount() const override;
    int indexOfChild(const QAccessibleInterface* child) const override;
    /// The name is that of the current tab, as in the toolkit: a screen reader announces it when the bar gets
    /// focus.
    QString text(QAccessible::Text what) const override;

private:
    TabBar& bar() const;

    mutable std::map<int, QAccessible::Id> m_tabs; ///< by index; registered on demand
};

} // namespace qt3
