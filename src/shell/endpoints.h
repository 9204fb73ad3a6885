#pragma once
#include <string>

namespace quill::shell {

/// The addresses of the services that the program uses, without a slash at the end.
struct Endpoints {
  std::string webApp = "https://www.onenote.com";
  std::string documentHost = "d.docs.live.net";  ///< of personal accounts' client links; a host, no address
};

/// The addresses, each replaced by its environment variable where that is set: `QUILL_WEBAPP_URL`,
/// `QUILL_DOCUMENT_HOST`.
Endpoints FindEndpoints();

}  // namespace quill::shell
