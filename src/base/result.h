#pragma once
#include <optional>
#include <string>
#include <utility>
#include <variant>

namespace quill {

/// The failure half of a `Result`: wraps the error so that value and error may be of one type.
template <class E>
struct Failure {
  E error;
};

template <class E>
Failure(E) -> Failure<E>;

/// A value, or the reason why there is none. The reason is a text for a reader unless `E` says otherwise.
template <class T, class E = std::string>
class [[nodiscard]] Result {
 public:
  Result(T value) : m_state(std::in_place_index<0>, std::move(value)) {}
  Result(Failure<E> failure) : m_state(std::in_place_index<1>, std::move(failure.error)) {}

  bool ok() const { return m_state.index() == 0; }
  explicit operator bool() const { return ok(); }

  /// The value; only to be asked for when `ok()`.
  T& operator*() { return std::get<0>(m_state); }
  const T& operator*() const { return std::get<0>(m_state); }
  T* operator->() { return &std::get<0>(m_state); }
  const T* operator->() const { return &std::get<0>(m_state); }

  /// The reason; only to be asked for when not `ok()`.
  const E& error() const { return std::get<1>(m_state); }

  T ValueOr(T other) const { return ok() ? std::get<0>(m_state) : std::move(other); }

 private:
  std::variant<T, E> m_state;
};

/// A step that yields nothing but may fail.
template <class E = std::string>
using Status = Result<std::monostate, E>;

/// The success of a `Status`.
inline std::monostate Done() {
  return {};
}

}  // namespace quill
