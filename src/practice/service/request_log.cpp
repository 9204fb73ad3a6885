#include "practice/service/request_log.h"

#include <algorithm>
#include <iterator>

#include "content/unicode_text.h"

namespace quill::practice {
namespace {

constexpr std::size_t kMost = 10'000;
constexpr std::string_view kSecrets[] = {"code", "access_token", "refresh_token", "id_token", "password"};

bool IsSecret(std::string_view escapedName) {
  const std::string name = content::ToLower(content::PercentUnescape(escapedName));
  return std::find(std::begin(kSecrets), std::end(kSecrets), name) != std::end(kSecrets);
}

}  // namespace

std::string WithoutSecrets(std::string_view target) {
  const std::size_t mark = std::min(target.find('?'), target.size() - 1);
  std::string shown(target.substr(0, mark + 1));
  for (std::string_view rest = target.substr(mark + 1); !rest.empty();) {
    const std::size_t end = std::min(rest.find('&'), rest.size());
    const std::string_view field = rest.substr(0, end);
    const std::size_t equals = std::min(field.find('='), field.size());
    IsSecret(field.substr(0, equals)) ? void(shown.append(field.substr(0, equals)).append("…"))
                                      : void(shown.append(field));
    if (end < rest.size()) shown += '&';
    rest.remove_prefix(std::min(end + 1, rest.size()));
  }
  return shown;
}

void RequestLog::Add(std::string_view method, std::string_view target) {
  std::string line = std::string(method) + " " + WithoutSecrets(target);
  const std::lock_guard lock(m_mutex);
  m_requests.push_back(std::move(line));
  if (m_requests.size() > kMost) m_requests.pop_front();
}

std::vector<std::string> RequestLog::All() const {
  const std::lock_guard lock(m_mutex);
  return {m_requests.begin(), m_requests.end()};
}

void RequestLog::Clear() {
  const std::lock_guard lock(m_mutex);
  m_requests.clear();
}

}  // namespace quill::practice
