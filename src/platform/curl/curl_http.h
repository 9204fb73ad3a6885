#pragma once
#include <memory>

#include "platform/http.h"

namespace quill::platform {

/// Requests through libcurl. Connections are kept and used again; the proxy is the one that the environment
/// names. Certificates are checked against the system's store. The library is loaded at the first request.
class CurlHttp final : public Http {
 public:
  CurlHttp();
  ~CurlHttp() override;

  Result<HttpResponse, HttpFailure> Send(const HttpRequest& request) override;

 private:
  class Handles;
  std::unique_ptr<Handles> m_handles;
};

}  // namespace quill::platform
