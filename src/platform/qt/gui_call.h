#pragma once
#include <QMetaObject>
#include <QObject>
#include <QThread>
#include <chrono>
#include <future>
#include <memory>
#include <optional>
#include <utility>

namespace quill::platform::qt {

/// Hands `work` to the thread of `context` and waits for its answer; nothing when the deadline passes or
/// `context` goes away first. `work` gets a function to call with the answer, then or later; what it
/// captures must live until it has run, whether or not anybody still waits. Not to be called on the
/// thread of `context`.
template <class R, class Work>
std::optional<R> AskThread(QObject* context, std::chrono::milliseconds deadline, Work work) {
  auto promise = std::make_shared<std::promise<R>>();
  std::future<R> answer = promise->get_future();
  QMetaObject::invokeMethod(
      context,
      [promise = std::move(promise), work = std::move(work)]() mutable {
        work([promise](R value) { promise->set_value(std::move(value)); });
      },
      Qt::QueuedConnection);
  if (answer.wait_for(deadline) != std::future_status::ready) return std::nullopt;
  try {
    return answer.get();
  } catch (const std::future_error&) {  // nobody is left who could answer
    return std::nullopt;
  }
}

/// As `AskThread` for work that answers at once; on the thread of `context` itself it is simply done.
template <class Work>
auto CallOnThread(QObject* context, std::chrono::milliseconds deadline, Work work)
    -> std::optional<decltype(work())> {
  if (context->thread() == QThread::currentThread()) return work();
  using R = decltype(work());
  return AskThread<R>(context, deadline, [work = std::move(work)](auto answer) mutable { answer(work()); });
}

}  // namespace quill::platform::qt
