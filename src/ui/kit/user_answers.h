#pragma once
#include <QMetaObject>
#include <QObject>
#include <QThread>
#include <condition_variable>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <utility>

#include "ui/kit/once.h"

namespace quill::ui {

/// Lets the command thread put a question on the GUI thread and wait for its answer; the GUI thread itself
/// never waits. When the program ends, `Close` gives everybody who waits their fallback. Made and destroyed
/// on the GUI thread; an answer that comes after that goes nowhere.
class UserAnswers {
 public:
  /// Runs `show` on the GUI thread with a function that takes the answer, and waits until it was called
  /// (then or later). When nobody can call it any more, the answer is `T()`. After `Close` nothing is shown
  /// and the answer is the fallback. Never to be called on the GUI thread, which would wait for itself.
  template <class T>
  T Ask(std::function<void(std::function<void(T)>)> show, T fallback) {
    Q_ASSERT(QThread::currentThread() != m_guiThread.thread());
    const std::shared_ptr<State> state = m_state;
    auto waiting = std::make_shared<std::optional<T>>();
    const auto give = [state, waiting](T answer) {
      const std::lock_guard lock(state->mutex);
      *waiting = std::move(answer);
      state->answered.notify_all();
    };
    const auto ask = [state, give, show = std::move(show)] {
      if (state->IsClosed()) return;
      const Once<T> once(give);
      show([once](T answer) { once.Give(std::move(answer)); });
    };
    QMetaObject::invokeMethod(&m_guiThread, ask, Qt::QueuedConnection);
    std::unique_lock lock(state->mutex);
    state->answered.wait(lock, [&] { return state->closed || waiting->has_value(); });
    return waiting->has_value() ? std::move(**waiting) : std::move(fallback);
  }

  /// From here on nobody waits any more. GUI thread.
  void Close() {
    const std::lock_guard lock(m_state->mutex);
    m_state->closed = true;
    m_state->answered.notify_all();
  }

 private:
  struct State {
    bool IsClosed() {
      const std::lock_guard lock(mutex);
      return closed;
    }
    std::mutex mutex;
    std::condition_variable answered;
    bool closed = false;
  };
  std::shared_ptr<State> m_state = std::make_shared<State>();
  QObject m_guiThread;  // what is posted to it is dropped with it
};

}  // namespace quill::ui
