#include "practice/service/identity_routes.h"

#include <fmt/format.h>

#include <nlohmann/json.hpp>

#include "content/text_between.h"
#include "content/unicode_text.h"
#include "practice/service/html_text.h"

namespace quill::practice {
namespace {

constexpr std::string_view kSessionCookie = "QuillPracticeSession";

WebAnswer Page(int status, std::string_view title, std::string_view content) {
  WebAnswer answer;
  answer.status = status;
  answer.type = "text/html; charset=utf-8";
  answer.body = SmallPage(title, content);
  answer.headers = {{"Cache-Control", "no-store"}};
  return answer;
}

WebAnswer LoginPage(std::string_view problem) {
  const std::string told = problem.empty() ? "" : fmt::format("<p role=\"alert\">{}</p>", problem);
  return Page(
      200, "Sign in to the practice notebook",
      fmt::format("<p>This page is for practice: it is served by this computer, and any password will do.</p>"
                  "{}<form method=\"post\">"
                  "<label>User name<input name=\"username\" autocomplete=\"off\" value=\"{}\"></label>"
                  "<label>Password<input name=\"password\" type=\"password\" autocomplete=\"off\" autofocus>"
                  "</label><button type=\"submit\">Sign in</button>"
                  "<button type=\"submit\" name=\"cancel\" value=\"1\">Cancel</button></form>",
                  told, kPracticeUser));
}

WebAnswer Redirect(std::string address) {
  WebAnswer answer;
  answer.status = 302;
  answer.headers = {{"Location", std::move(address)}, {"Cache-Control", "no-store"}};
  return answer;
}

/// Without blanks, as the platform writes it.
WebAnswer Json(int status, const nlohmann::ordered_json& json) {
  WebAnswer answer;
  answer.status = status;
  answer.type = "application/json; charset=utf-8";
  answer.body = json.dump();
  answer.headers = {{"Cache-Control", "no-store"}, {"Pragma", "no-cache"}};
  return answer;
}

WebAnswer TokenProblem(std::string_view error, std::string_view description) {
  return Json(400, {{"error", error}, {"error_description", description}});
}

std::string SessionOf(const WebRequest& request) {
  const std::string all = request.cookie + ";";
  return std::string(content::TextBetween(all, std::string(kSessionCookie) + "=", ";"));
}

/// What is wrong with an address that asks for a code; "" when nothing is.
std::string_view ProblemOfAuthorize(const Fields& query, std::string_view redirectUri) {
  if (FieldOf(query, "client_id") != kPracticeClientId) return "There is no application with this client_id.";
  if (FieldOf(query, "redirect_uri") != redirectUri)
    return "The redirect_uri is not one of this application.";
  if (FieldOf(query, "response_type") != "code") return "The response_type must be \"code\".";
  if (FieldOf(query, "scope").empty()) return "The scope is missing.";
  return {};
}

}  // namespace

IdentityRoutes::IdentityRoutes(std::string base, TokenBook& tokens)
    : m_base(std::move(base)), m_tokens(tokens) {}

std::string IdentityRoutes::RedirectUri() const {
  return m_base + "/oauth20_desktop.srf";
}

std::optional<WebAnswer> IdentityRoutes::Answer(const WebRequest& request) const {
  const std::string_view path = std::string_view(request.target).substr(0, request.target.find('?'));
  const bool isGet = request.method == "GET" || request.method == "HEAD";
  const bool isPost = request.method == "POST";
  if (path == "/common/oauth2/v2.0/authorize" && (isGet || isPost)) return Authorize(request);
  if (path == "/common/oauth2/v2.0/token" && isPost) return Token(request);
  if (path == "/oauth20_desktop.srf" && isGet) {
    const bool isSignedIn = HasField(request.query, "code");
    return Page(200, isSignedIn ? "Signed in" : "Not signed in", "<p>You can close this window.</p>");
  }
  if (path == "/oauth20_logout.srf" && isGet) return SignOut(request);
  return std::nullopt;
}

WebAnswer IdentityRoutes::Authorize(const WebRequest& request) const {
  const std::string_view problem = ProblemOfAuthorize(request.query, RedirectUri());
  if (!problem.empty()) return Page(400, "Cannot sign in", fmt::format("<p>{}</p>", EscapeHtml(problem)));
  if (HasField(request.form, "cancel") || HasField(request.query, "cancel")) {
    return Redirect(
        RedirectUri() +
        "?error=access_denied&error_description=The%20user%20has%20denied%20access%20to%20the%20scope"
        "%20requested%20by%20the%20client%20application.");
  }
  if (request.method == "POST") return SignIn(request);
  const bool mustAsk = FieldOf(request.query, "prompt") == "login";
  if (!mustAsk && m_tokens.HasSession(SessionOf(request))) return GoBackWithCode();
  return LoginPage("");
}

WebAnswer IdentityRoutes::SignIn(const WebRequest& request) const {
  if (content::ToLower(FieldOf(request.form, "username")) != kPracticeUser)
    return LoginPage("There is no such user.");
  if (FieldOf(request.form, "password").empty()) return LoginPage("Enter a password; any will do.");
  WebAnswer answer = GoBackWithCode();
  answer.headers.emplace_back("Set-Cookie", fmt::format("{}={}; Path=/; HttpOnly; SameSite=Lax",
                                                        kSessionCookie, m_tokens.NewSession()));
  return answer;
}

WebAnswer IdentityRoutes::GoBackWithCode() const {
  return Redirect(fmt::format("{}?code={}&username={}", RedirectUri(), m_tokens.NewCode(RedirectUri()),
                              EscapeUrlPart(kPracticeUser)));
}

WebAnswer IdentityRoutes::Token(const WebRequest& request) const {
  if (FieldOf(request.form, "client_id") != kPracticeClientId)
    return TokenProblem("unauthorized_client", "There is no application with this client_id.");
  const std::string grant = FieldOf(request.form, "grant_type");
  std::optional<TokenBook::Pair> tokens;
  if (grant == "authorization_code") {
    tokens = m_tokens.TakeCode(FieldOf(request.form, "code"), FieldOf(request.form, "redirect_uri"));
  } else if (grant == "refresh_token") {
    tokens = m_tokens.TakeRefresh(FieldOf(request.form, "refresh_token"));
  } else {
    return TokenProblem("unsupported_grant_type", "The grant_type is not supported.");
  }
  if (!tokens)
    return TokenProblem("invalid_grant", "The code or the refresh token is not valid or has been used.");
  return Json(200, {{"token_type", "Bearer"},
                    {"scope", kPracticeScope},
                    {"expires_in", m_tokens.Life().count()},
                    {"ext_expires_in", m_tokens.Life().count()},
                    {"access_token", tokens->access},
                    {"refresh_token", tokens->refresh}});
}

WebAnswer IdentityRoutes::SignOut(const WebRequest& request) const {
  m_tokens.EndSession(SessionOf(request));
  WebAnswer answer = Page(200, "Signed out", "<p>You can close this window.</p>");
  answer.headers.emplace_back("Set-Cookie",
                              fmt::format("{}=; Path=/; Max-Age=0; HttpOnly; SameSite=Lax", kSessionCookie));
  return answer;
}

}  // namespace quill::practice
