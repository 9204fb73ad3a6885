#pragma once
#include <string>

namespace quill {

/// The addresses of the services that the program uses, without a slash at the end, and what it calls itself
/// there.
struct Endpoints {
  std::string graph = "https://graph.microsoft.com";           ///< the OneNote service
  std::string identity = "https://login.microsoftonline.com";  ///< authorisation and tokens
  std::string signIn = "https://login.live.com";               ///< redirect and logout pages
  std::string webApp = "https://www.onenote.com";
  std::string documentHost = "d.docs.live.net";  ///< of personal accounts' client links; a host, no address
  std::string embed = "https://onedrive.live.com/embed?";  ///< what OneDrive's embed links begin with
  std::string clientId;                                    ///< registered with the identity platform (a GUID)
  /// The maker's own addresses. Placeholders: there are none yet, so nothing is downloaded or opened.
  std::string update = "";   ///< the update information: a file that holds the newest version
  std::string product = "";  ///< the page about the product
};

/// The addresses, each replaced by its environment variable where that is set: `QUILL_GRAPH_URL`,
/// `QUILL_IDENTITY_URL`, `QUILL_SIGNIN_URL`, `QUILL_WEBAPP_URL`, `QUILL_DOCUMENT_HOST`, `QUILL_EMBED_URL`,
/// `QUILL_CLIENT_ID`, `QUILL_UPDATE_URL`, `QUILL_PRODUCT_URL`. The client identifier is otherwise that of the
/// build.
Endpoints FindEndpoints();

/// Whether a client identifier has been set at all: a build without one carries only zeros.
bool HasClientId(const Endpoints& endpoints);

}  // namespace quill
