#pragma once

#include "check.h"

#include <QElapsedTimer>
#include <QEvent>
#include <QWidget>

/// An application that can wait for a widget to be painted.
template <typename Application>
class PaintWatch : public Application
{
public:
    using Application::Application;

    bool notify(QObject* receiver, QEvent* event) override
    {
        const bool isPaint = receiver == m_watched && event->type() == QEvent::Paint;
        const bool result = Application::notify(receiver, event);
        m_isPainted = m_isPainted || isPaint;
        return result;
    }

    /// Shows a window and processes events until the widget in it is painted; the window is then completely
    /// drawn. Ends the program if the widget is never painted.
    void showPainted(QWidget& window, const QObject* widget)
    {
        watch(widget);
        window.show(); // may paint at once
        await();
    }

    /// The same for a widget that has just been changed.
    void awaitPaint(const QObject* widget)
    {
        watch(widget);
        await();
    }

private:
    void watch(const QObject* widget)
    {
        m_watched = widget;
        m_isPainted = false;
    }

    void await()
    {
        QElapsedTimer timer;
        timer.start();
        while (!m_isPainted && timer.elapsed() < 30000)
            Application::processEvents(QEventLoop::AllEvents);
        checkAnswer(m_isPainted, "the wait for a picture");
        m_watched = nullptr;
    }

    const QObject* m_watched = nullptr;
    bool m_isPainted = false;
};
