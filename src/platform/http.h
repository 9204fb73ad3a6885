#pragma once
#include <chrono>
#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "base/result.h"

namespace quill::platform {

enum class HttpMethod { Get, Post, Patch, Delete };

struct HttpHeader {
  std::string name;
  std::string value;
  bool operator==(const HttpHeader&) const = default;
};

struct HttpRequest {
  HttpMethod method = HttpMethod::Get;
  std::string url;  ///< http or https, already escaped
  std::vector<HttpHeader> headers;
  std::string body;  ///< of POST and PATCH
  std::chrono::milliseconds deadline{30'000};
  std::size_t bodyLimit = 64u << 20;  ///< bytes of the answer, unpacked; more is an error
  std::function<bool()> isCancelled;  ///< asked at least once a second on the calling thread; may be empty
};

struct HttpResponse {
  int status = 0;                   ///< of the last answer when redirects were followed
  std::vector<HttpHeader> headers;  ///< as they came; names in any case
  std::string body;                 ///< bytes, whatever the status is
  std::string url;                  ///< where the answer came from
};

/// Why there is no answer. The texts shown to the user are in the string table under the key that
/// `HttpProblemKey` gives.
enum class HttpProblem {
  BadRequest,    ///< neither http nor https, not an address, or a header with a line break
  HostNotFound,  ///< also: no network
  NotConnected,  ///< refused, or nobody there
  Insecure,      ///< the certificate is not good
  TimedOut,
  TooLarge,
  CutOff,            ///< the connection went before the answer was whole
  TooManyRedirects,  ///< or one to something that is neither http nor https
  Cancelled,
  Failed
};

struct HttpFailure {
  HttpProblem problem = HttpProblem::Failed;
  std::string detail;  ///< for the log: what the library says; never a header or a body
};

/// The string-table key of a problem's message; empty for `Cancelled`.
std::string_view HttpProblemKey(HttpProblem problem);

/// The value of the first header of that name, in any case; empty when there is none.
std::string_view HeaderValue(const std::vector<HttpHeader>& headers, std::string_view name);

/// Requests to web services, each answered or failed when `Send` returns. Any thread.
class Http {
 public:
  virtual ~Http() = default;

  /// Redirects are followed (ten at most) for GET without an "Authorization" header, so that a token never
  /// reaches another host; otherwise the answer is the redirect itself.
  virtual Result<HttpResponse, HttpFailure> Send(const HttpRequest& request) = 0;
};

}  // namespace quill::platform
