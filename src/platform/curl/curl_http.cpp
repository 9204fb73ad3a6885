#include "platform/curl/curl_http.h"

#include <mutex>
#include <utility>
#include <vector>

#include "platform/curl/curl_exchange.h"

namespace quill::platform {
namespace {

/// A byte that would end a header line, or start another.
bool HasControl(std::string_view text) {
  for (const char c : text) {
    if (static_cast<unsigned char>(c) < 0x20 && c != '\t') return true;
  }
  return false;
}

bool IsSendable(const HttpRequest& request) {
  if (request.url.empty() || HasControl(request.url)) return false;
  for (const HttpHeader& header : request.headers) {
    if (header.name.empty() || HasControl(header.name) || HasControl(header.value)) return false;
    if (header.name.find_first_of(": ") != std::string::npos) return false;
  }
  return true;
}

}  // namespace

/// Handles that wait for their next request, each with the connections that it has open.
class CurlHttp::Handles {
 public:
  CurlHandle Take() {
    const std::lock_guard lock(m_mutex);
    if (m_idle.empty()) return CurlHandle(Curl().easy_init());
    CurlHandle handle = std::move(m_idle.back());
    m_idle.pop_back();
    return handle;
  }

  void Give(CurlHandle handle) {
    Curl().easy_reset(handle.get());
    const std::lock_guard lock(m_mutex);
    m_idle.push_back(std::move(handle));
  }

 private:
  std::mutex m_mutex;
  std::vector<CurlHandle> m_idle;
};

CurlHttp::CurlHttp() : m_handles(std::make_unique<Handles>()) {}

CurlHttp::~CurlHttp() = default;

Result<HttpResponse, HttpFailure> CurlHttp::Send(const HttpRequest& request) {
  if (!IsSendable(request)) return Failure{HttpFailure{HttpProblem::BadRequest, "not a request"}};
  if (!Curl().isLoaded) return Failure{HttpFailure{HttpProblem::Failed, "libcurl is not installed"}};
  CurlHandle handle = m_handles->Take();
  if (!handle) return Failure{HttpFailure{HttpProblem::Failed, "no handle"}};
  auto answer = CurlExchange(handle.get(), request).Perform();
  m_handles->Give(std::move(handle));
  return answer;
}

}  // namespace quill::platform
