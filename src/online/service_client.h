#pragma once
#include <chrono>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "platform/http.h"

namespace quill::online {

/// An answer of the service, whatever its status.
struct ServiceReply {
  int status = 0;
  std::string body;  ///< empty also when the bytes are not UTF-8
};

using HttpAnswer = Result<platform::HttpResponse, platform::HttpFailure>;

/// What an answer brought. Nothing for a transport failure: no answer came, or the service demands
/// credentials (status 401 with a "WWW-Authenticate" header, RFC 7235), in whose case a token has run out.
/// Every other answer is one, also that of an error status.
std::optional<ServiceReply> ReplyOf(HttpAnswer answer);

/// How long an answer of the OneNote service may take where nothing else is said.
inline constexpr std::chrono::seconds kServiceDeadline{30};

/// Sends requests for one command and keeps count of them. One at a time, on the thread that calls.
class ServiceClient {
 public:
  /// `isCancelled` is asked while a request is under way; it may be empty.
  explicit ServiceClient(platform::Http& http, std::function<bool()> isCancelled = {});

  /// Sends the request and waits for its `ReplyOf`. Nothing is sent once the user has ended the command.
  std::optional<ServiceReply> Send(platform::HttpRequest request);

  int RequestCount() const { return m_requestCount; }

  /// Whether the user has ended the command; nothing more is sent then.
  bool IsCancelled() const { return m_isCancelled && m_isCancelled(); }

  /// Why the last request had no answer; nothing when it had one, or when it was a demand for credentials.
  const std::optional<platform::HttpFailure>& LastFailure() const { return m_lastFailure; }

 private:
  platform::Http& m_http;
  std::function<bool()> m_isCancelled;
  std::optional<platform::HttpFailure> m_lastFailure;
  int m_requestCount = 0;
};

/// A GET with this access token. Throws nothing; the address is escaped already.
platform::HttpRequest BearerGet(std::string url, std::string_view accessToken,
                                std::chrono::milliseconds deadline);

}  // namespace quill::online
