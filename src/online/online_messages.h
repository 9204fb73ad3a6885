#pragma once
#include <string>

#include "online/online_host.h"
#include "online/page_search.h"
#include "online/service_list.h"

namespace quill::online {

/// What an error of the service is called for the user: too many requests by that name, others by status and
/// code.
std::string ServiceErrorText(OnlineHost& host, const ServiceError& error);

/// Why a search found no page, with the figures that tell how far it came. `isSignedIn` is how it is after
/// the search.
std::string SearchFailureText(OnlineHost& host, const SearchDiagnostics& seen, bool isSignedIn);

}  // namespace quill::online
