#pragma once

#include <QApplication>

#include <exception>

namespace qt3 {

/// An application that brings exceptions of its event handlers to the caller of exec(). The toolkit must not
/// be unwound: the first exception that leaves a handler is kept and the event loops are ended with 0; those
/// that follow until the loops have ended are dropped.
///
///     const int status = application.exec();
///     application.rethrow();
class Application : public QApplication
{
    Q_OBJECT

public:
    using QApplication::QApplication;

    /// False when the handler threw.
    bool notify(QObject* receiver, QEvent* event) override;

    /// Throws the exception that was kept, whatever its type, once; returns when there is none.
    void rethrow();

private:
    std::exception_ptr m_first;
};

} // namespace qt3
