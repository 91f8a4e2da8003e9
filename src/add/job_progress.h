#pragma once

#include "progress.h"

#include <QObject>
#include <QString>

#include <atomic>
#include <exception>
#include <functional>

namespace Kedrin::Add {

/// The user has cancelled a job.
class CCancelled final : public std::exception
{
public:
    const char* what() const noexcept override { return "cancelled"; }
};

/// Hands a job's progress to the thread of the event loop, and ends the job where the user has cancelled it, as long as
/// it is not complete.
class CJobProgress final : public ModTool::IProgress
{
public:
    using Told = std::function<void(const QString& name, int percent)>;

    /// @param receiver  told() is called in its thread; it outlives the job
    CJobProgress(QObject& receiver, Told told) : m_receiver(receiver), m_told(std::move(told)) {}

    /// The job ends at its next step with CCancelled. May be called by any thread.
    void cancel() { m_isCancelled = true; }
    bool isCancelled() const { return m_isCancelled; }

    /// @throws CCancelled
    void show(const std::string& name, std::size_t done, std::size_t total) override;
    void clear() override {}

private:
    QObject& m_receiver;
    Told m_told;
    std::atomic<bool> m_isCancelled = false;
    std::string m_shownName;
    int m_shownPercent = -1;
};

} // namespace Kedrin::Add
