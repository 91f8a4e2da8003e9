#pragma once

#include "tab_bar.h"

#include <QSignalSpy>
#include <QTest>

#include <memory>

/// A tab bar for each test and the identifiers that it emitted.
class TabBarFixture
{
protected:
    void start()
    {
        m_bar = std::make_unique<qt3::TabBar>();
        m_spy = std::make_unique<QSignalSpy>(m_bar.get(), &qt3::TabBar::selected);
    }
    void end()
    {
        m_bar.reset();
        m_spy.reset();
    }
    void addThree()
    {
        for (const QChar label : QStringView(u"АБВ"))
            m_bar->addTab(QString(label));
    }
    void show()
    {
        m_bar->resize(m_bar->sizeHint());
        m_bar->show();
        m_bar->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(m_bar.get()));
    }
    void press(int id, Qt::MouseButton button = Qt::LeftButton)
    {
        QTest::mousePress(m_bar.get(), button, {}, m_bar->tabRect(m_bar->indexOf(id)).center());
    }
    QList<int> emitted() const { return ids(*m_spy); }
    static QList<int> ids(const QSignalSpy& spy)
    {
        QList<int> ids;
        for (const QList<QVariant>& arguments : spy)
            ids.append(arguments.at(0).toInt());
        return ids;
    }

    std::unique_ptr<qt3::TabBar> m_bar;
    std::unique_ptr<QSignalSpy> m_spy;
};
