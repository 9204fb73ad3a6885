#pragma once
#include <chrono>
#include <functional>
#include <map>
#include <mutex>
#include <optional>
#include <set>
#include <string>
#include <string_view>

namespace quill::practice {

/// The codes and tokens of the one user. Thread-safe.
class TokenBook {
 public:
  using Now = std::function<std::chrono::steady_clock::time_point()>;

  struct Pair {
    std::string access;
    std::string refresh;
  };

  explicit TokenBook(std::chrono::seconds life, Now now = &std::chrono::steady_clock::now);

  /// A code that is good for one exchange within ten minutes, with this redirect address only.
  std::string NewCode(const std::string& redirectUri);

  /// Fresh tokens for a code; the code is used up also when the address is the wrong one.
  std::optional<Pair> TakeCode(const std::string& code, std::string_view redirectUri);

  /// Fresh tokens for a refresh token, which is worthless afterwards.
  std::optional<Pair> TakeRefresh(const std::string& token);

  Pair Issue();

  bool IsGood(const std::string& accessToken) const;
  void ExpireAccess();

  /// A signed-in browser, and what it is known by.
  std::string NewSession();
  bool HasSession(const std::string& session) const;
  void EndSession(const std::string& session);

  std::chrono::seconds Life() const { return m_life; }

 private:
  using Time = std::chrono::steady_clock::time_point;
  struct Code {
    std::string redirectUri;
    Time end;
  };
  Pair IssueLocked();

  const std::chrono::seconds m_life;
  const Now m_now;
  mutable std::mutex m_mutex;
  std::map<std::string, Code> m_codes;
  std::map<std::string, Time> m_access;
  std::set<std::string> m_refresh;
  std::set<std::string> m_sessions;
};

}  // namespace quill::practice
