#include "online/service_client.h"

#include <fmt/format.h>

#include "content/unicode_text.h"

namespace quill::online {

ServiceClient::ServiceClient(platform::Http& http, std::function<bool()> isCancelled)
    : m_http(http), m_isCancelled(std::move(isCancelled)) {}

std::optional<ServiceReply> ServiceClient::Send(platform::HttpRequest request) {
  m_lastFailure.reset();
  if (IsCancelled()) {
    m_lastFailure = platform::HttpFailure{platform::HttpProblem::Cancelled, {}};
    return std::nullopt;
  }
  request.isCancelled = m_isCancelled;
  ++m_requestCount;
  HttpAnswer answer = m_http.Send(request);
  if (!answer.ok()) m_lastFailure = answer.error();
  return ReplyOf(std::move(answer));
}

std::optional<ServiceReply> ReplyOf(HttpAnswer answer) {
  constexpr int kUnauthorized = 401;
  if (!answer.ok()) return std::nullopt;
  const bool demands = !platform::HeaderValue(answer->headers, "WWW-Authenticate").empty();
  if (answer->status == kUnauthorized && demands) return std::nullopt;
  ServiceReply reply{answer->status, std::move(answer->body)};
  if (!content::IsValidUtf8(reply.body)) reply.body.clear();
  return reply;
}

platform::HttpRequest BearerGet(std::string url, std::string_view accessToken,
                                std::chrono::milliseconds deadline) {
  platform::HttpRequest request;
  request.url = std::move(url);
  request.headers = {{"Authorization", fmt::format("Bearer {}", accessToken)}};
  request.deadline = deadline;
  return request;
}

}  // namespace quill::online
