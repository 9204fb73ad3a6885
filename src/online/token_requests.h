#pragma once
#include <chrono>
#include <string>
#include <string_view>

#include "base/endpoints.h"
#include "online/account.h"
#include "platform/http.h"

namespace quill::online {

// The requests of the OAuth 2.0 authorisation-code flow for a native client (RFC 6749, section 4.1), and what
// is read from their answers. Pure; any thread.

/// The desktop redirect page of the sign-in service.
std::string RedirectUri(const Endpoints& endpoints);

/// Where the user signs in. The service asks for credentials every time.
std::string AuthorizeUrl(const Endpoints& endpoints);

/// Where the browser's session with the sign-in service ends.
std::string LogoutUrl(const Endpoints& endpoints);

/// The beginning of the service's addresses for this user: by id when the id has a "-", as business accounts'
/// have, else for whoever the token belongs to.
std::string GraphBaseUrl(const Endpoints& endpoints, std::string_view userId);

/// The value of a field in the query of an address, as it is written there, up to the next "&" or the end;
/// "" without such a field. The first place that looks like the field counts; an empty value takes the rest.
std::string GetFieldValueFromURL(std::string_view url, std::string_view fieldName);

platform::HttpRequest CodeRequest(const Endpoints& endpoints, std::string_view code,
                                  std::chrono::milliseconds deadline);
platform::HttpRequest RefreshRequest(const Endpoints& endpoints, std::string_view refreshToken,
                                     std::chrono::milliseconds deadline);
platform::HttpRequest UserRequest(const Endpoints& endpoints, std::string_view accessToken,
                                  std::chrono::milliseconds deadline);
platform::HttpRequest NotebooksRequest(const Endpoints& endpoints, const Account& account,
                                       std::chrono::milliseconds deadline);

/// Whether the answer to a token request has an access token at all, be it an empty one.
bool HasAccessToken(std::string_view body);

/// Takes both tokens out of an answer to a token request, by a plain search: what is not there becomes "".
void TakeTokens(std::string_view body, Account& account);

/// Takes user id and principal name out of an answer to a `UserRequest`, likewise.
void TakeUser(std::string_view body, Account& account);

/// The account part of the client link of the first notebook in a list that is not shared; "" without one.
std::string GetAccountIdFromNotebookJson(std::string_view body, std::string_view documentHost);

}  // namespace quill::online
