#pragma once
#include <deque>
#include <mutex>
#include <string>
#include <string_view>
#include <vector>

namespace quill::practice {

/// A target with "…" in place of whatever a query holds that signs somebody in.
std::string WithoutSecrets(std::string_view target);

/// The requests that came last, at most 10,000. Thread-safe.
class RequestLog {
 public:
  void Add(std::string_view method, std::string_view target);
  std::vector<std::string> All() const;
  void Clear();

 private:
  mutable std::mutex m_mutex;
  std::deque<std::string> m_requests;
};

}  // namespace quill::practice
