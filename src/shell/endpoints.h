#pragma once
#include <string>

namespace quill::shell {

/// The addresses of the services that the program uses, without a slash at the end.
struct Endpoints {
  std::string webApp = "https://www.onenote.com";
};

/// The addresses, each replaced by its environment variable where that is set: `QUILL_WEBAPP_URL`.
Endpoints FindEndpoints();

}  // namespace quill::shell
