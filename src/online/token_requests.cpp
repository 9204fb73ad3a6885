#include "online/token_requests.h"

#include <fmt/format.h>

#include "content/find_text.h"
#include "content/text_between.h"
#include "content/unicode_text.h"
#include "online/account_id.h"
#include "online/service_addresses.h"
#include "online/service_client.h"
#include "online/service_list.h"

namespace quill::online {
namespace {

using content::TextBetween;

constexpr std::string_view kScope =
    "offline_access User.Read Notes.Create Notes.ReadWrite Notes.ReadWrite.All";

platform::HttpRequest TokenRequest(const Endpoints& endpoints, std::string body,
                                   std::chrono::milliseconds deadline) {
  platform::HttpRequest request;
  request.method = platform::HttpMethod::Post;
  request.url = endpoints.identity + "/common/oauth2/v2.0/token";
  request.headers = {{"Content-Length", std::to_string(body.size())},
                     {"Content-Type", "application/x-www-form-urlencoded"}};
  request.body = std::move(body);
  request.deadline = deadline;
  return request;
}

/// The text behind a key of a JSON object, found without reading the JSON: as the service writes it, without
/// a blank behind the colon, and with its escapes.
std::string_view PlainValue(std::string_view body, std::string_view key) {
  return TextBetween(body, fmt::format("\"{}\":\"", key), "\"");
}

}  // namespace

std::string RedirectUri(const Endpoints& endpoints) {
  return endpoints.signIn + "/oauth20_desktop.srf";
}

std::string AuthorizeUrl(const Endpoints& endpoints) {
  return fmt::format(
      "{}/common/oauth2/v2.0/authorize?prompt=login&client_id={}&response_type=code&response_mode=query"
      "&scope={}&redirect_uri={}",
      endpoints.identity, endpoints.clientId, content::PercentEscape(kScope), RedirectUri(endpoints));
}

std::string LogoutUrl(const Endpoints& endpoints) {
  return fmt::format("{}/oauth20_logout.srf?client_id={}&redirect_uri={}", endpoints.signIn,
                     endpoints.clientId, RedirectUri(endpoints));
}

std::string GraphBaseUrl(const Endpoints& endpoints, std::string_view userId) {
  if (HasNoHyphen(userId)) return endpoints.graph + "/v1.0/me";
  return fmt::format("{}/v1.0/users/{}", endpoints.graph, userId);
}

std::string GetFieldValueFromURL(std::string_view url, std::string_view fieldName) {
  const std::string marker = fmt::format("{}=", fieldName);
  const std::string_view value = TextBetween(url, marker, "&");
  return std::string(value.empty() ? TextBetween(url, marker, "") : value);
}

platform::HttpRequest CodeRequest(const Endpoints& endpoints, std::string_view code,
                                  std::chrono::milliseconds deadline) {
  return TokenRequest(endpoints,
                      fmt::format("grant_type=authorization_code&client_id={}&code={}&redirect_uri={}",
                                  endpoints.clientId, code, RedirectUri(endpoints)),
                      deadline);
}

platform::HttpRequest RefreshRequest(const Endpoints& endpoints, std::string_view refreshToken,
                                     std::chrono::milliseconds deadline) {
  return TokenRequest(endpoints,
                      fmt::format("grant_type=refresh_token&client_id={}&refresh_token={}&redirect_uri={}",
                                  endpoints.clientId, refreshToken, RedirectUri(endpoints)),
                      deadline);
}

platform::HttpRequest UserRequest(const Endpoints& endpoints, std::string_view accessToken,
                                  std::chrono::milliseconds deadline) {
  return BearerGet(GraphBaseUrl(endpoints, ""), accessToken, deadline);
}

platform::HttpRequest NotebooksRequest(const Endpoints& endpoints, const Account& account,
                                       std::chrono::milliseconds deadline) {
  return BearerGet(NotebooksUrl(GraphBaseUrl(endpoints, account.OnlineOneNoteUserId)),
                   account.OnlineOneNoteAccessToken, deadline);
}

bool HasAccessToken(std::string_view body) {
  return content::FindText(body, "\"access_token\":\"") != std::string_view::npos;
}

void TakeTokens(std::string_view body, Account& account) {
  account.OnlineOneNoteAccessToken = PlainValue(body, "access_token");
  account.OnlineOneNoteRefreshToken = PlainValue(body, "refresh_token");
}

void TakeUser(std::string_view body, Account& account) {
  account.OnlineOneNoteUserId = PlainValue(body, "id");
  account.OnlineOneNoteUserPrincipalName = PlainValue(body, "userPrincipalName");
}

std::string GetAccountIdFromNotebookJson(std::string_view body, std::string_view documentHost) {
  const std::optional<nlohmann::json> notebooks = ValueOf(body);
  if (!notebooks) return {};
  for (const nlohmann::json& notebook : *notebooks) {
    if (!notebook.is_object() || IsTrueAt(notebook, "isShared")) continue;
    return std::string(
        AccountIdFromClientUrl(TextAt(notebook, {"links", "oneNoteClientUrl", "href"}), documentHost));
  }
  return {};
}

}  // namespace quill::online
