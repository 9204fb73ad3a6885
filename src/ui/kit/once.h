#pragma once
#include <functional>
#include <memory>
#include <utility>

namespace quill::ui {

/// A callback that is called exactly once: with the first value given, or with `T()` when the last copy goes
/// without one. Whoever waits for a window is so answered however the window ends.
template <class T>
class Once {
 public:
  explicit Once(std::function<void(T)> function) : m_call(std::make_shared<Call>(std::move(function))) {}

  /// The first call counts; the others do nothing.
  void Give(T value) const {
    if (auto function = std::exchange(m_call->function, nullptr)) function(std::move(value));
  }

 private:
  struct Call {
    explicit Call(std::function<void(T)> given) : function(std::move(given)) {}
    Call(const Call&) = delete;
    Call& operator=(const Call&) = delete;
    ~Call() {
      if (function) function(T());
    }
    std::function<void(T)> function;
  };
  std::shared_ptr<Call> m_call;
};

}  // namespace quill::ui
