#include "shell/explain.h"

#include <fmt/format.h>

namespace quill::shell {

Explain::Scope::Scope(Explain& owner, std::string_view name) : m_owner(owner), m_name(name) {
  if (m_owner.m_timings) m_start = std::chrono::steady_clock::now();
}

Explain::Scope::~Scope() {
  if (!m_owner.m_timings) return;
  const std::chrono::duration<double, std::milli> spent = std::chrono::steady_clock::now() - m_start;
  m_owner.m_timings(fmt::format("{}: {:.3f} ms", m_name, spent.count()));
}

}  // namespace quill::shell
