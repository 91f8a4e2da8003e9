#include "application.h"

#include <utility>

namespace qt3 {

bool Application::notify(QObject* receiver, QEvent* event)
{
    try {
        return QApplication::notify(receiver, event);
    } catch (...) {
        if (!m_first)
            m_first = std::current_exception();
        exit(0);
        return false;
    }
}

void Application::rethrow()
{
    if (m_first)
        std::rethrow_exception(std::exchange(m_first, nullptr));
}

} // namespace qt3
