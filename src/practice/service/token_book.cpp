#include "practice/service/token_book.h"

#include <fmt/format.h>

#include <random>
#include <utility>

namespace quill::practice {
namespace {

constexpr std::chrono::minutes kCodeLife{10};

/// Long and random as the real ones, and without a character that would need escaping.
std::string RandomText(std::string_view kind, int words) {
  std::random_device random;
  std::string text(kind);
  for (int i = 0; i < words; ++i) text += fmt::format("{:08x}", random());
  return text;
}

}  // namespace

TokenBook::TokenBook(std::chrono::seconds life, Now now) : m_life(life), m_now(std::move(now)) {}

std::string TokenBook::NewCode(const std::string& redirectUri) {
  std::string code = RandomText("M.practice_", 5);
  const std::lock_guard lock(m_mutex);
  m_codes[code] = {redirectUri, m_now() + kCodeLife};
  return code;
}

std::optional<TokenBook::Pair> TokenBook::TakeCode(const std::string& code, std::string_view redirectUri) {
  const std::lock_guard lock(m_mutex);
  const auto known = m_codes.extract(code);
  if (known.empty() || known.mapped().redirectUri != redirectUri || m_now() >= known.mapped().end)
    return std::nullopt;
  return IssueLocked();
}

std::optional<TokenBook::Pair> TokenBook::TakeRefresh(const std::string& token) {
  const std::lock_guard lock(m_mutex);
  if (m_refresh.erase(token) == 0) return std::nullopt;
  return IssueLocked();
}

TokenBook::Pair TokenBook::Issue() {
  const std::lock_guard lock(m_mutex);
  return IssueLocked();
}

TokenBook::Pair TokenBook::IssueLocked() {
  Pair pair{RandomText("Ew.practice.", 40), RandomText("M.refresh.", 20)};
  const Time now = m_now();
  std::erase_if(m_access, [now](const auto& token) { return token.second <= now; });
  m_access[pair.access] = now + m_life;
  m_refresh.insert(pair.refresh);
  return pair;
}

bool TokenBook::IsGood(const std::string& accessToken) const {
  const std::lock_guard lock(m_mutex);
  const auto known = m_access.find(accessToken);
  return known != m_access.end() && m_now() < known->second;
}

void TokenBook::ExpireAccess() {
  const std::lock_guard lock(m_mutex);
  m_access.clear();
}

std::string TokenBook::NewSession() {
  std::string session = RandomText("", 4);
  const std::lock_guard lock(m_mutex);
  m_sessions.insert(session);
  return session;
}

bool TokenBook::HasSession(const std::string& session) const {
  const std::lock_guard lock(m_mutex);
  return m_sessions.contains(session);
}

void TokenBook::EndSession(const std::string& session) {
  const std::lock_guard lock(m_mutex);
  m_sessions.erase(session);
}

}  // namespace quill::practice
