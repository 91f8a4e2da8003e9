#pragma once

#include <QObject>
#include <QThreadPool>

#include <functional>

namespace Kedrin::Add {

/// Runs jobs one after another beside the event loop. The SWORD library serves one thread: all jobs that use it belong
/// to one object.
class CBackground final : public QObject
{
    Q_OBJECT

public:
    /// What is to be done with a job's result, by the thread of the event loop.
    using Use = std::function<void()>;

    CBackground();

    /// Waits for the job that is running. Neither the others nor the results are used any more.
    ~CBackground() override;

    /// Appends a job.
    /// @param job   runs beside the event loop and returns what to do with its result
    /// @param fail  instead of that, where the job throws: with the message, which is empty if it was CCancelled
    void run(std::function<Use()> job, std::function<void(const QString&)> fail);

    /// Forgets the jobs that have not begun.
    void forgetWaiting() { m_threads.clear(); }

private:
    void post(Use use);

    QThreadPool m_threads;
};

} // namespace Kedrin::Add
