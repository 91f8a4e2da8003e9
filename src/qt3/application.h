#pragma once

#include <QApplication>

#include <exception>

namespace qt3 {

/// An application that passes exceptions of its event handlers to the caller of exec(). Exceptions must not
/// propagate through the toolkit: the first exception that leaves a handler is stored and the event loops are
/// ended with 0; further ones are dropped until the loops have ended.
///
///     const int status = application.exec();
///     application.rethrow();
class Application : public QApplication
{
    Q_OBJECT

public:
    using QApplication::QApplication;

    /// False if the handler threw.
    bool notify(QObject* receiver, QEvent* event) override;

    /// Throws the stored exception, whatever its type, once; returns if there is none.
    void rethrow();

private:
    std::exception_ptr m_first;
};

} // namespace qt3
