#pragma once
#include <functional>
#include <memory>
#include <optional>
#include <utility>

#include "platform/mac/handed_over_job.h"

namespace quill::platform::mac {

/// True on the process's main thread.
bool OnMainThread();

/// Queues `work` for the main thread and returns at once. Needs a running main run loop.
void PostToMainThread(std::function<void()> work);

/// Has `work` done on the main thread and returns its answer; nothing when a limit passed (see
/// `HandedOverJob`). On the main thread itself it is simply done.
template <class Work>
auto CallOnMainThread(JobLimits limits, Work work) -> std::optional<decltype(work())> {
  if (OnMainThread()) return work();
  auto job = std::make_shared<HandedOverJob<decltype(work())>>(std::move(work));
  PostToMainThread([job] { job->Perform(); });
  return job->Await(limits);
}

}  // namespace quill::platform::mac
