#pragma once
#include <QCoreApplication>
#include <QMetaObject>
#include <condition_variable>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <utility>

namespace quill::ui {

/// Lets the command thread put a question on the GUI thread and wait for its answer; the GUI thread itself
/// never waits. When the program ends, `Close` gives everybody who waits their fallback.
class UserAnswers {
 public:
  /// Runs `show` on the GUI thread with a function that takes the answer, and waits until it was called
  /// (then or later). Not to be called on the GUI thread. `T` is the answer's type.
  template <class T>
  T Ask(std::function<void(std::function<void(T)>)> show, T fallback) {
    auto waiting = std::make_shared<std::optional<T>>();
    QMetaObject::invokeMethod(
        QCoreApplication::instance(),
        [this, show = std::move(show), waiting] {
          show([this, waiting](T answer) {
            const std::lock_guard lock(m_mutex);
            if (!waiting->has_value()) *waiting = std::move(answer);
            m_answered.notify_all();
          });
        },
        Qt::QueuedConnection);
    std::unique_lock lock(m_mutex);
    m_answered.wait(lock, [&] { return m_closed || waiting->has_value(); });
    return waiting->has_value() ? std::move(**waiting) : std::move(fallback);
  }

  /// From here on nobody waits any more. GUI thread.
  void Close() {
    const std::lock_guard lock(m_mutex);
    m_closed = true;
    m_answered.notify_all();
  }

 private:
  std::mutex m_mutex;
  std::condition_variable m_answered;
  bool m_closed = false;
};

}  // namespace quill::ui
