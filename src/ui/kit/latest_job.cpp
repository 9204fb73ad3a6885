#include "ui/kit/latest_job.h"

#include "ui/kit/background.h"

namespace quill::ui {

void LatestJob::Cancel() {
  if (m_isCancelled) *m_isCancelled = true;
  m_deliver = nullptr;
  m_waiting.reset();
}

void LatestJob::Start(Job job) {
  Cancel();
  m_waiting = std::move(job);
  if (!m_isThreadBusy) Next();
}

void LatestJob::Next() {
  Job job = std::move(*m_waiting);
  m_waiting.reset();
  m_isThreadBusy = true;
  m_isCancelled = std::make_shared<std::atomic<bool>>(false);
  m_deliver = std::move(job.deliver);
  RunInBackground<std::shared_ptr<void>>(
      &m_receiver,
      [work = std::move(job.work), isCancelled = m_isCancelled] {
        return work([isCancelled] { return isCancelled->load(); });
      },
      [this](const std::shared_ptr<void>& result) { Finish(result); });
}

void LatestJob::Finish(const std::shared_ptr<void>& result) {
  m_isThreadBusy = false;
  const Deliver deliver = std::exchange(m_deliver, nullptr);
  if (m_waiting) Next();
  if (deliver) deliver(result);  // last: this object may be gone after it
}

}  // namespace quill::ui
