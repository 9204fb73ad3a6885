#pragma once
#include <utility>

namespace quill::platform::mac {

/// Owns one reference of a C interface (Core Foundation, Carbon, IOKit) and gives it back with `kRelease`.
/// An empty reference (`T{}`) is never released.
template <class T, auto kRelease>
class MacRef {
 public:
  MacRef() = default;
  explicit MacRef(T owned) : m_ref(owned) {}
  MacRef(MacRef&& other) noexcept : m_ref(std::exchange(other.m_ref, T{})) {}
  MacRef& operator=(MacRef other) noexcept {
    std::swap(m_ref, other.m_ref);
    return *this;
  }
  ~MacRef() {
    if (m_ref) kRelease(m_ref);
  }

  T get() const { return m_ref; }
  explicit operator bool() const { return m_ref != T{}; }

 private:
  T m_ref{};
};

}  // namespace quill::platform::mac
