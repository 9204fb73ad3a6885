#pragma once
#include <gtest/gtest.h>

#include <deque>
#include <string>
#include <vector>

#include "online/session.h"
#include "platform/http.h"

namespace quill::online {

/// A service of a test: writes down what it is sent and gives the answers that it was told, in their order.
class ScriptedHttp final : public platform::Http {
 public:
  using Reply = Result<platform::HttpResponse, platform::HttpFailure>;

  static Reply Answer(std::string body, int status = 200, std::vector<platform::HttpHeader> headers = {}) {
    return platform::HttpResponse{status, std::move(headers), std::move(body), {}};
  }
  static Reply Failed(platform::HttpProblem problem = platform::HttpProblem::NotConnected) {
    return Failure{platform::HttpFailure{problem, {}}};
  }
  /// The answer to a token that has run out.
  static Reply Unauthorized() { return Answer("{}", 401, {{"Www-Authenticate", "Bearer realm=\"\""}}); }

  explicit ScriptedHttp(std::deque<Reply> replies = {}) : m_replies(std::move(replies)) {}

  void Add(Reply reply) { m_replies.push_back(std::move(reply)); }

  Reply Send(const platform::HttpRequest& request) override {
    requests.push_back(request);
    if (m_replies.empty()) {
      ADD_FAILURE() << "a request that the test did not expect: " << request.url;
      return Failed();
    }
    Reply reply = std::move(m_replies.front());
    m_replies.pop_front();
    return reply;
  }

  /// Answers that nobody has asked for.
  std::size_t left() const { return m_replies.size(); }

  std::vector<platform::HttpRequest> requests;

 private:
  std::deque<Reply> m_replies;
};

/// Somebody who is signed in, at services that do not exist, and a count of what was saved.
struct AccountWorld {
  Endpoints endpoints = {.graph = "https://graph.test",
                         .identity = "https://identity.test",
                         .signIn = "https://signin.test",
                         .webApp = "https://web.test",
                         .documentHost = "docs.test",
                         .clientId = "11112222-3333-4444-5555-666677778888"};
  Account account = {"at-0", "rt-0", "7c1f", "id-0", "ada@contoso.com"};
  SessionMemory memory;
  std::vector<Account> saved;  ///< as it was at each save
  Session session{endpoints, account, memory, [this]() -> Status<> {
                    saved.push_back(account);
                    return Done();
                  }};

  AccountWorld() = default;
  AccountWorld(const AccountWorld&) = delete;
  AccountWorld& operator=(const AccountWorld&) = delete;
};

inline constexpr const char* kTokens =
    R"({"token_type":"Bearer","scope":"User.Read","expires_in":3600,"access_token":"at-1","refresh_token":"rt-1"})";
inline constexpr const char* kUser =
    R"({"@odata.context":"x","displayName":"Ada","userPrincipalName":"ada@outlook.com","id":"7c1f0a93b2d84e65"})";
inline constexpr const char* kNotebooks =
    R"({"value":[{"isShared":true,"links":{"oneNoteClientUrl":{"href":"onenote:https://docs.test/ffff/N"}}},)"
    R"({"isShared":false,"links":{"oneNoteClientUrl":{"href":"onenote:https://docs.test/7c1f0a93/N"}}}]})";

}  // namespace quill::online
