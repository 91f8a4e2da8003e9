#include "application.h"

#include <QTest>
#include <QTimer>

#include <stdexcept>

/// The tests create applications themselves, so they do not use Qt's test framework.
namespace {

int failures = 0;

void check(bool isTrue, const char* what)
{
    if (isTrue)
        return;
    ++failures;
    qCritical("FAIL: %s", what);
}

template <typename Exception>
void throwFromTimer(Exception exception)
{
    QTimer::singleShot(0, qApp, [exception] { throw exception; });
}

void standardExceptionReachesTheCallerOfExec(qt3::Application& application)
{
    throwFromTimer(std::runtime_error("first"));
    check(application.exec() == 0, "the loop ends with 0");
    try {
        application.rethrow();
        check(false, "rethrow throws");
    } catch (const std::runtime_error& ex) {
        check(std::string("first") == ex.what(), "the exception is the one that was thrown");
    }
}

void anyTypeReachesTheCallerOfExec(qt3::Application& application)
{
    throwFromTimer(42);
    check(application.exec() == 0, "the loop ends with 0 for a number");
    try {
        application.rethrow();
        check(false, "rethrow throws a number");
    } catch (int number) {
        check(number == 42, "the number is the one that was thrown");
    }
}

void firstOfSeveralIsKept(qt3::Application& application)
{
    throwFromTimer(1);
    throwFromTimer(2);
    application.exec();
    QCoreApplication::processEvents();
    try {
        application.rethrow();
        check(false, "rethrow throws the first");
    } catch (int number) {
        check(number == 1, "the first one is kept");
    }
}

void nestedLoopEndsToo(qt3::Application& application)
{
    bool isNestedLoopOver = false;
    QTimer::singleShot(0, qApp, [&] {
        throwFromTimer(3);
        QEventLoop().exec();
        isNestedLoopOver = true;
    });
    check(application.exec() == 0, "both loops end with 0");
    check(isNestedLoopOver, "the nested loop has returned to its caller");
    try {
        application.rethrow();
        check(false, "rethrow throws what left the nested loop");
    } catch (int number) {
        check(number == 3, "what left the nested loop is kept");
    }
}

void exceptionIsThrownOnce(qt3::Application& application)
{
    throwFromTimer(4);
    application.exec();
    try {
        application.rethrow();
    } catch (int) {
    }
    application.rethrow();
}

void withoutExceptionTheStatusIsTheLoops(qt3::Application& application)
{
    QTimer::singleShot(0, qApp, [] { QCoreApplication::exit(7); });
    check(application.exec() == 7, "the status of exit() is kept");
    application.rethrow();
}

class Thrower : public QObject
{
public:
    bool event(QEvent*) override { throw std::logic_error("event"); }
};

void sendingToAThrowingHandlerGivesFalse(qt3::Application& application)
{
    Thrower thrower;
    QEvent event(QEvent::User);
    check(!QCoreApplication::sendEvent(&thrower, &event), "a handler that throws has not handled");
    try {
        application.rethrow();
        check(false, "what the handler threw is kept");
    } catch (const std::logic_error&) {
    }
}

} // namespace

int main(int argc, char** argv)
{
    qt3::Application application(argc, argv);
    standardExceptionReachesTheCallerOfExec(application);
    anyTypeReachesTheCallerOfExec(application);
    firstOfSeveralIsKept(application);
    nestedLoopEndsToo(application);
    exceptionIsThrownOnce(application);
    withoutExceptionTheStatusIsTheLoops(application);
    sendingToAThrowingHandlerGivesFalse(application);
    return failures;
}
