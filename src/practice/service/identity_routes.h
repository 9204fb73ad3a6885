#pragma once
#include <optional>
#include <string>
#include <string_view>

#include "practice/service/token_book.h"
#include "practice/service/web_exchange.h"

namespace quill::practice {

/// The client identifier that the service accepts, and its one user.
inline constexpr std::string_view kPracticeClientId = "5ba7c2d1-0e94-4f3a-8d26-97c1e4b3a605";
inline constexpr std::string_view kPracticeUser = "practice@example.com";
inline constexpr std::string_view kPracticeScope =
    "offline_access User.Read Notes.Create Notes.ReadWrite Notes.ReadWrite.All";

/// The identity platform's pages and tokens, and the redirect and logout pages of the sign-in service.
///
/// The login page takes the one user with any password. Its "cancel" field, in the form or in the query, goes
/// back with an error instead. A browser that has signed in is recognised by a cookie until it signs out, and
/// sees the page again only when the address says "prompt=login".
class IdentityRoutes {
 public:
  /// `base` is the server's own address.
  IdentityRoutes(std::string base, TokenBook& tokens);

  /// Nothing when the request is not one of these.
  std::optional<WebAnswer> Answer(const WebRequest& request) const;

  /// The only redirect address that is accepted.
  std::string RedirectUri() const;

 private:
  WebAnswer Authorize(const WebRequest& request) const;
  WebAnswer SignIn(const WebRequest& request) const;
  WebAnswer GoBackWithCode() const;
  WebAnswer Token(const WebRequest& request) const;
  WebAnswer SignOut(const WebRequest& request) const;

  std::string m_base;
  TokenBook& m_tokens;
};

}  // namespace quill::practice
