#include "base/endpoints.h"

#include <cstdlib>

#include "base/version.h"

namespace quill {
namespace {

void TakeFromEnvironment(const char* name, std::string& address) {
  const char* value = std::getenv(name);
  if (value != nullptr && *value != '\0') address = value;
}

}  // namespace

Endpoints FindEndpoints() {
  Endpoints endpoints;
  endpoints.clientId = kClientId;
  TakeFromEnvironment("QUILL_GRAPH_URL", endpoints.graph);
  TakeFromEnvironment("QUILL_IDENTITY_URL", endpoints.identity);
  TakeFromEnvironment("QUILL_SIGNIN_URL", endpoints.signIn);
  TakeFromEnvironment("QUILL_WEBAPP_URL", endpoints.webApp);
  TakeFromEnvironment("QUILL_DOCUMENT_HOST", endpoints.documentHost);
  TakeFromEnvironment("QUILL_EMBED_URL", endpoints.embed);
  TakeFromEnvironment("QUILL_CLIENT_ID", endpoints.clientId);
  TakeFromEnvironment("QUILL_UPDATE_URL", endpoints.update);
  TakeFromEnvironment("QUILL_PRODUCT_URL", endpoints.product);
  return endpoints;
}

bool HasClientId(const Endpoints& endpoints) {
  return endpoints.clientId.find_first_not_of("0-") != std::string::npos;
}

}  // namespace quill
