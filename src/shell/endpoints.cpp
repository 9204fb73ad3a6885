#include "shell/endpoints.h"

#include <cstdlib>

namespace quill::shell {
namespace {

void TakeFromEnvironment(const char* name, std::string& address) {
  const char* value = std::getenv(name);
  if (value != nullptr && *value != '\0') address = value;
}

}  // namespace

Endpoints FindEndpoints() {
  Endpoints endpoints;
  TakeFromEnvironment("QUILL_WEBAPP_URL", endpoints.webApp);
  TakeFromEnvironment("QUILL_DOCUMENT_HOST", endpoints.documentHost);
  return endpoints;
}

}  // namespace quill::shell
