#include "background.h"

#include "job_progress.h"
#include "shown_text.h"

#include <exception>
#include <utility>

namespace Kedrin::Add {

CBackground::CBackground() { m_threads.setMaxThreadCount(1); }

CBackground::~CBackground()
{
    m_threads.clear();
    m_threads.waitForDone();
}

void CBackground::run(std::function<Use()> job, std::function<void(const QString&)> fail)
{
    m_threads.start([this, job = std::move(job), fail = std::move(fail)] {
        try {
            post(job());
        } catch (const CCancelled&) {
            post([fail] { fail({}); });
        } catch (const std::exception& exception) {
            post([fail, message = messageOf(exception)] { fail(message); });
        }
    });
}

void CBackground::post(Use use) { QMetaObject::invokeMethod(this, std::move(use), Qt::QueuedConnection); }

} // namespace Kedrin::Add
