#pragma once
#include <memory>
#include <string>
#include <string_view>

#include "platform/curl/curl_library.h"
#include "platform/http.h"

namespace quill::platform {

struct CurlHandleCloser {
  void operator()(CURL* handle) const { Curl().easy_cleanup(handle); }
};
using CurlHandle = std::unique_ptr<CURL, CurlHandleCloser>;

struct CurlListCloser {
  void operator()(curl_slist* list) const { Curl().slist_free_all(list); }
};
using CurlList = std::unique_ptr<curl_slist, CurlListCloser>;

/// One request and its answer on a handle with nothing set. Lives until the handle is reset.
class CurlExchange {
 public:
  CurlExchange(CURL* handle, const HttpRequest& request);

  Result<HttpResponse, HttpFailure> Perform();

 private:
  void SetAddress();
  void SetMethod();
  void SetHeaders();
  void SetLimits();
  void SetCallbacks();

  void TakeHeaderLine(std::string_view line);
  bool TakeBody(std::string_view bytes);

  static std::size_t OnHeader(char* bytes, std::size_t size, std::size_t count, void* exchange);
  static std::size_t OnBody(char* bytes, std::size_t size, std::size_t count, void* exchange);
  static int OnProgress(void* exchange, curl_off_t, curl_off_t, curl_off_t, curl_off_t);

  CURL* m_handle;
  const HttpRequest& m_request;
  CurlList m_headers;
  HttpResponse m_response;
  bool m_isSafe = false;  ///< the library keeps to http and https
  bool m_hasAnswer = false;
  bool m_isTooLarge = false;
  std::size_t m_headerBytes = 0;
  char m_detail[CURL_ERROR_SIZE] = {};
};

}  // namespace quill::platform
