#pragma once
#include <chrono>

namespace quill::platform {

/// The time, injected so that no test waits for it. May be called from any thread.
class Clock {
 public:
  virtual ~Clock() = default;
  /// The current moment of the system clock.
  virtual std::chrono::system_clock::time_point Now() const = 0;
};

/// The system's own clock.
class SystemClock final : public Clock {
 public:
  std::chrono::system_clock::time_point Now() const override { return std::chrono::system_clock::now(); }
};

/// A clock that stands still until it is set.
class FixedClock final : public Clock {
 public:
  explicit FixedClock(std::chrono::system_clock::time_point now) : m_now(now) {}
  std::chrono::system_clock::time_point Now() const override { return m_now; }
  void Set(std::chrono::system_clock::time_point now) { m_now = now; }

 private:
  std::chrono::system_clock::time_point m_now;
};

}  // namespace quill::platform
