#include "accessible_tab_bar.h"

#include "tab_bar.h"

#include <QKeySequence>

namespace qt3 {

namespace {

QAccessibleInterface* newInterface(const QString& className, QObject* object)
{
    auto* bar = qobject_cast<TabBar*>(object);
    const bool isBar = bar != nullptr && className == QLatin1String(TabBar::staticMetaObject.className());
    return isBar ? new AccessibleTabBar(bar) : nullptr;
}

/// The label without its mnemonic marker.
QString spoken(const QString& label)
{
    QString text;
    for (qsizetype i = 0; i < label.size(); ++i) {
        if (label[i] == u'&' && ++i == label.size())
            break;
        text += label[i];
    }
    return text;
}

} // namespace

bool AccessibleTab::isValid() const { return m_index < m_bar->count(); }

QWindow* AccessibleTab::window() const { return parent()->window(); }

QAccessibleInterface* AccessibleTab::parent() const { return QAccessible::queryAccessibleInterface(m_bar); }

QString AccessibleTab::text(QAccessible::Text what) const
{
    if (!isValid())
        return {};
    const QString name = m_bar->accessibleTabName(m_index);
    switch (what) {
    case QAccessible::Name:
        return name.isEmpty() ? spoken(m_bar->tabText(m_index)) : name;
    case QAccessible::Accelerator:
        return QKeySequence::mnemonic(m_bar->tabText(m_index)).toString(QKeySequence::NativeText);
    case QAccessible::Description:
        return m_bar->tabToolTip(m_index);
    case QAccessible::Help:
        return m_bar->tabWhatsThis(m_index);
    default:
        return {};
    }
}

QRect AccessibleTab::rect() const
{
    const QRect inBar = isValid() ? m_bar->tabRect(m_index) : QRect();
    return {m_bar->mapToGlobal(inBar.topLeft()), inBar.size()};
}

QAccessible::State AccessibleTab::state() const
{
    QAccessible::State state = parent()->state();
    const bool isCurrent = m_index == m_bar->currentIndex();
    state.invalid = !isValid();
    state.disabled = state.disabled || !m_bar->isTabEnabled(m_index);
    state.focusable = true;
    state.focused = isCurrent && m_bar->hasFocus();
    state.selectable = true;
    state.selected = isCurrent;
    state.offscreen = !m_bar->rect().intersects(m_bar->tabRect(m_index));
    return state;
}

void* AccessibleTab::interface_cast(QAccessible::InterfaceType type)
{
    return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this) : nullptr;
}

QStringList AccessibleTab::actionNames() const { return {pressAction()}; }

void AccessibleTab::doAction(const QString& name)
{
    if (isValid() && name == pressAction())
        m_bar->choose(m_index);
}

QStringList AccessibleTab::keyBindingsForAction(const QString&) const { return {}; }

void AccessibleTabBar::install()
{
    static const bool installed = (QAccessible::installFactory(newInterface), true);
    Q_UNUSED(installed)
}

AccessibleTabBar::AccessibleTabBar(TabBar* bar) : QAccessibleWidget(bar, QAccessible::PageTabList) {}

AccessibleTabBar::~AccessibleTabBar()
{
    for (const auto& [index, id] : m_tabs)
        QAccessible::deleteAccessibleInterface(id);
}

QAccessibleInterface* AccessibleTabBar::child(int index) const
{
    const int tabs = bar().count();
    if (index < 0 || index >= tabs)
        return QAccessibleWidget::child(index - tabs);
    const auto known = m_tabs.find(index);
    if (known != m_tabs.end())
        return QAccessible::accessibleInterface(known->second);
    auto* tab = new AccessibleTab(&bar(), index);
    m_tabs.emplace(index, QAccessible::registerAccessibleInterface(tab));
    return tab;
}

QAccessibleInterface* AccessibleTabBar::focusChild() const
{
    return bar().hasFocus() && bar().currentIndex() >= 0 ? child(bar().currentIndex()) : nullptr;
}

int AccessibleTabBar::childCount() const { return bar().count() + QAccessibleWidget::childCount(); }

int AccessibleTabBar::indexOfChild(const QAccessibleInterface* child) const
{
    for (const auto& [index, id] : m_tabs)
        if (QAccessible::accessibleInterface(id) == child)
            return index < bar().count() ? index : -1;
    const int button = QAccessibleWidget::indexOfChild(child);
    return button < 0 ? -1 : bar().count() + button;
}

QString AccessibleTabBar::text(QAccessible::Text what) const
{
    const int current = bar().currentIndex();
    return what == QAccessible::Name && current >= 0 ? child(current)->text(what)
                                                     : QAccessibleWidget::text(what);
}

TabBar& AccessibleTabBar::bar() const { return *static_cast<TabBar*>(widget()); }

} // namespace qt3
