#include "random.h"

#include <QApplication>
#include <QGenericPlugin>
#include <QMainWindow>
#include <QMessageBox>
#include <QTest>
#include <QTimer>

#include <algorithm>
#include <cstdio>

namespace {

constexpr unsigned int actionCount = 25;

const std::vector<Qt::Key> keys = {
    Qt::Key_Down, Qt::Key_Up, Qt::Key_PageDown, Qt::Key_End,    Qt::Key_Tab,  Qt::Key_Tab,
    Qt::Key_F8,   Qt::Key_F5, Qt::Key_Space,    Qt::Key_Return, Qt::Key_1,    Qt::Key_2,
    Qt::Key_3,    Qt::Key_A,  Qt::Key_Home,     Qt::Key_Left,   Qt::Key_Right};

/// Presses keys in the window of its program, closes every message box after writing its caption to standard
/// output, and closes the window at last.
class User : public QObject
{
public:
    explicit User(unsigned int seed) : m_random(seed) { actSoon(); }

private:
    /// Starts a timer for each action, since a timer does not fire again before its slot ends, which waits where a
    /// key press shows a message box.
    void actSoon() { QTimer::singleShot(1, this, &User::act); }

    void act()
    {
        actSoon();
        if (QWidget* modal = QApplication::activeModalWidget()) {
            std::printf("box %s\n", modal->windowTitle().toUtf8().constData());
            modal->close();
            return;
        }
        QWidget* window = QApplication::activeWindow();
        if (window == nullptr) {
            activateMainWindow();
            return;
        }
        if (!window->isVisible() || QApplication::activePopupWidget() != nullptr)
            return;
        if (m_done++ < actionCount)
            QTest::keyClick(window->focusWidget() ? window->focusWidget() : window, m_random.oneOf(keys));
        else
            window->close();
    }

    /// Does what a window manager does after a message box is closed.
    static void activateMainWindow()
    {
        const QWidgetList windows = QApplication::topLevelWidgets();
        const auto visible = std::ranges::find_if(windows, &QWidget::isVisible);
        if (visible != windows.end())
            (*visible)->activateWindow();
    }

    test_support::Random m_random;
    unsigned int m_done = 0;
};

} // namespace

/// With QT_QPA_GENERIC_PLUGINS=user:SEED a program has a user whose keys the seed determines.
class UserPlugin : public QGenericPlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QGenericPluginFactoryInterface_iid FILE "user.json")

public:
    QObject* create(const QString&, const QString& seed) override { return new User(seed.toUInt()); }
};

#include "user_plugin.moc"
