#include "tab_bar.h"

#include "accessible_tab_bar.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QSignalBlocker>
#include <QWheelEvent>

namespace qt3 {

TabBar::TabBar(QWidget* parent) : QTabBar(parent)
{
    setExpanding(false);
    setElideMode(Qt::ElideNone);
    setUsesScrollButtons(true);
    AccessibleTabBar::install();
    connect(this, &QTabBar::currentChanged, this, [this](int index) {
        if (idAt(index) >= 0)
            makeCurrent(idAt(index));
    });
}

int TabBar::addTab(const QString& label) { return insertTab(label, count()); }

int TabBar::insertTab(const QString& label, int index)
{
    const int id = m_nextId++;
    const int position = index < 0 || index > count() ? count() : index;
    m_ids.insert(position, id);
    m_stacked.prepend(id);
    m_labels.insert(id, label);
    const QSignalBlocker blocker(this);
    QTabBar::insertTab(position, label);
    showCurrent();
    return id;
}

void TabBar::removeId(int id)
{
    const int index = indexOf(id);
    if (index < 0)
        return;
    m_ids.removeAt(index);
    m_stacked.removeOne(id);
    m_labels.remove(id);
    const QSignalBlocker blocker(this);
    removeTab(index);
    showCurrent();
}

int TabBar::currentTab() const { return m_stacked.isEmpty() ? -1 : m_stacked.constLast(); }

void TabBar::setCurrentTab(int id)
{
    if (m_labels.contains(id))
        makeCurrent(id);
}

int TabBar::idAt(int index) const { return m_ids.value(index, -1); }

int TabBar::indexOf(int id) const { return int(m_ids.indexOf(id)); }

QString TabBar::label(int id) const { return m_labels.value(id); }

void TabBar::keyPressEvent(QKeyEvent* event)
{
    switch (event->key()) {
    case Qt::Key_Space:
    case Qt::Key_Return:
    case Qt::Key_Enter:
        choose(currentIndex());
        break;
    default:
        QTabBar::keyPressEvent(event);
    }
}

void TabBar::mousePressEvent(QMouseEvent* event)
{
    const int pressed = tabAt(event->position().toPoint());
    const bool isAgain = event->button() == Qt::LeftButton && pressed == currentIndex();
    QTabBar::mousePressEvent(event);
    if (isAgain)
        choose(pressed);
}

void TabBar::wheelEvent(QWheelEvent* event) { event->ignore(); }

/// Selects the tab at an index, or emits chosenAgain() if it is current.
void TabBar::choose(int index)
{
    if (!isTabEnabled(index))
        return; // no tab at -1 either
    if (index == currentIndex())
        emit chosenAgain(idAt(index));
    else
        setCurrentIndex(index);
}

void TabBar::makeCurrent(int id)
{
    if (id == currentTab())
        return;
    m_stacked.removeOne(id);
    m_stacked.append(id);
    {
        const QSignalBlocker blocker(this);
        showCurrent();
    }
    emit selected(id);
}

void TabBar::showCurrent()
{
    if (count() > 0)
        setCurrentIndex(indexOf(currentTab()));
}

} // namespace qt3
