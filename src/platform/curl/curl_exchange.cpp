#include "platform/curl/curl_exchange.h"

#include <algorithm>
#include <new>

#include "base/version.h"
#include "content/unicode_text.h"

namespace quill::platform {
namespace {

constexpr long kMaxRedirects = 10;
constexpr std::size_t kMostHeaderBytes = 1u << 20;
const std::string kAgent = std::string("QuillMenu/") + kVersion;

HttpProblem ProblemOf(CURLcode code) {
  switch (code) {
    case CURLE_UNSUPPORTED_PROTOCOL:
    case CURLE_URL_MALFORMAT:
      return HttpProblem::BadRequest;
    case CURLE_COULDNT_RESOLVE_HOST:
    case CURLE_COULDNT_RESOLVE_PROXY:
      return HttpProblem::HostNotFound;
    case CURLE_COULDNT_CONNECT:
      return HttpProblem::NotConnected;
    case CURLE_PEER_FAILED_VERIFICATION:
    case CURLE_SSL_CONNECT_ERROR:
    case CURLE_SSL_CACERT_BADFILE:
      return HttpProblem::Insecure;
    case CURLE_OPERATION_TIMEDOUT:
      return HttpProblem::TimedOut;
    case CURLE_PARTIAL_FILE:
    case CURLE_GOT_NOTHING:
    case CURLE_RECV_ERROR:
    case CURLE_SEND_ERROR:
      return HttpProblem::CutOff;
    case CURLE_TOO_MANY_REDIRECTS:
      return HttpProblem::TooManyRedirects;
    case CURLE_ABORTED_BY_CALLBACK:
      return HttpProblem::Cancelled;
    default:
      return HttpProblem::Failed;
  }
}

const char* MethodName(HttpMethod method) {
  switch (method) {
    case HttpMethod::Get:
      return "GET";
    case HttpMethod::Post:
      return "POST";
    case HttpMethod::Patch:
      return "PATCH";
    case HttpMethod::Delete:
      return "DELETE";
  }
  return "GET";
}

bool HasBody(HttpMethod method) {
  return method == HttpMethod::Post || method == HttpMethod::Patch;
}

std::string HeaderLine(const HttpHeader& header) {
  return header.value.empty() ? header.name + ";" : header.name + ": " + header.value;
}

}  // namespace

CurlExchange::CurlExchange(CURL* handle, const HttpRequest& request) : m_handle(handle), m_request(request) {
  SetAddress();
  SetMethod();
  SetHeaders();
  SetLimits();
  SetCallbacks();
}

void CurlExchange::SetAddress() {
  Curl().easy_setopt(m_handle, CURLOPT_URL, m_request.url.c_str());
  // A library that does not know these would take "file:", too.
  m_isSafe = Curl().easy_setopt(m_handle, CURLOPT_PROTOCOLS_STR, "http,https") == CURLE_OK &&
             Curl().easy_setopt(m_handle, CURLOPT_REDIR_PROTOCOLS_STR, "http,https") == CURLE_OK;
  const bool mayFollow =
      m_request.method == HttpMethod::Get && HeaderValue(m_request.headers, "authorization").empty();
  Curl().easy_setopt(m_handle, CURLOPT_FOLLOWLOCATION, mayFollow ? 1L : 0L);
  Curl().easy_setopt(m_handle, CURLOPT_MAXREDIRS, kMaxRedirects);
}

void CurlExchange::SetMethod() {
  if (m_request.method == HttpMethod::Get) return;
  // On a kept connection that has died meanwhile the library would send the request a second time.
  Curl().easy_setopt(m_handle, CURLOPT_FRESH_CONNECT, 1L);
  if (HasBody(m_request.method)) {
    Curl().easy_setopt(m_handle, CURLOPT_POSTFIELDSIZE_LARGE, static_cast<curl_off_t>(m_request.body.size()));
    Curl().easy_setopt(m_handle, CURLOPT_POSTFIELDS, m_request.body.data());
  }
  Curl().easy_setopt(m_handle, CURLOPT_CUSTOMREQUEST, MethodName(m_request.method));
}

void CurlExchange::SetHeaders() {
  // Some servers never answer "Expect", and curl would wait a second for each.
  CurlList list(Curl().slist_append(nullptr, "Expect:"));
  const bool namesType = !HeaderValue(m_request.headers, "content-type").empty();
  if (HasBody(m_request.method) && !namesType) Curl().slist_append(list.get(), "Content-Type:");
  for (const HttpHeader& header : m_request.headers)
    Curl().slist_append(list.get(), HeaderLine(header).c_str());
  m_headers = std::move(list);
  Curl().easy_setopt(m_handle, CURLOPT_HTTPHEADER, m_headers.get());
  Curl().easy_setopt(m_handle, CURLOPT_USERAGENT, kAgent.c_str());
  Curl().easy_setopt(m_handle, CURLOPT_ACCEPT_ENCODING, "");
}

void CurlExchange::SetLimits() {
  const long deadline = std::max(1L, static_cast<long>(m_request.deadline.count()));  // 0 would mean for ever
  Curl().easy_setopt(m_handle, CURLOPT_TIMEOUT_MS, deadline);
  Curl().easy_setopt(m_handle, CURLOPT_CONNECTTIMEOUT_MS, deadline);
  Curl().easy_setopt(m_handle, CURLOPT_NOSIGNAL, 1L);
  // A name server that never answers must not outlast the deadline.
  Curl().easy_setopt(m_handle, CURLOPT_QUICK_EXIT, 1L);
}

void CurlExchange::SetCallbacks() {
  Curl().easy_setopt(m_handle, CURLOPT_HEADERFUNCTION, &OnHeader);
  Curl().easy_setopt(m_handle, CURLOPT_HEADERDATA, this);
  Curl().easy_setopt(m_handle, CURLOPT_WRITEFUNCTION, &OnBody);
  Curl().easy_setopt(m_handle, CURLOPT_WRITEDATA, this);
  Curl().easy_setopt(m_handle, CURLOPT_XFERINFOFUNCTION, &OnProgress);
  Curl().easy_setopt(m_handle, CURLOPT_XFERINFODATA, this);
  Curl().easy_setopt(m_handle, CURLOPT_NOPROGRESS, 0L);
  Curl().easy_setopt(m_handle, CURLOPT_ERRORBUFFER, m_detail);
}

Result<HttpResponse, HttpFailure> CurlExchange::Perform() {
  if (!m_isSafe) return Failure{HttpFailure{HttpProblem::Failed, "this libcurl is too old"}};
  const CURLcode code = Curl().easy_perform(m_handle);
  if (code != CURLE_OK) {
    const HttpProblem problem = m_isTooLarge ? HttpProblem::TooLarge : ProblemOf(code);
    // Somebody answered: it is not the address that was asked for which is bad.
    const bool wasLedAstray = problem == HttpProblem::BadRequest && m_hasAnswer;
    return Failure{HttpFailure{wasLedAstray ? HttpProblem::TooManyRedirects : problem,
                               *m_detail != '\0' ? m_detail : Curl().easy_strerror(code)}};
  }
  long status = 0;
  char* address = nullptr;
  Curl().easy_getinfo(m_handle, CURLINFO_RESPONSE_CODE, &status);
  Curl().easy_getinfo(m_handle, CURLINFO_EFFECTIVE_URL, &address);
  m_response.status = static_cast<int>(status);
  if (address != nullptr) m_response.url = address;
  return std::move(m_response);
}

/// A status line begins the headers of another answer: after a redirect, or after an interim one.
void CurlExchange::TakeHeaderLine(std::string_view line) {
  while (line.ends_with('\n') || line.ends_with('\r')) line.remove_suffix(1);
  if (line.starts_with("HTTP/")) {
    m_response.headers.clear();
    m_hasAnswer = true;
    return;
  }
  const std::size_t colon = line.find(':');
  if (colon == std::string_view::npos) return;
  m_response.headers.push_back(
      {std::string(line.substr(0, colon)), std::string(content::TrimBlanks(line.substr(colon + 1)))});
}

bool CurlExchange::TakeBody(std::string_view bytes) {
  m_isTooLarge = bytes.size() > m_request.bodyLimit - m_response.body.size();
  if (!m_isTooLarge) m_response.body += bytes;
  return !m_isTooLarge;
}

// No exception may pass through the library's own frames: out of memory ends the exchange instead.
std::size_t CurlExchange::OnHeader(char* bytes, std::size_t size, std::size_t count, void* exchange) try {
  auto* self = static_cast<CurlExchange*>(exchange);
  self->m_headerBytes += size * count;
  self->m_isTooLarge = self->m_headerBytes > kMostHeaderBytes;
  if (self->m_isTooLarge) return 0;
  self->TakeHeaderLine({bytes, size * count});
  return size * count;
} catch (const std::bad_alloc&) {
  return 0;
}

std::size_t CurlExchange::OnBody(char* bytes, std::size_t size, std::size_t count, void* exchange) try {
  auto* self = static_cast<CurlExchange*>(exchange);
  return self->TakeBody({bytes, size * count}) ? size * count : 0;
} catch (const std::bad_alloc&) {
  return 0;
}

int CurlExchange::OnProgress(void* exchange, curl_off_t, curl_off_t, curl_off_t, curl_off_t) {
  const auto* self = static_cast<CurlExchange*>(exchange);
  return self->m_request.isCancelled && self->m_request.isCancelled() ? 1 : 0;
}

}  // namespace quill::platform
