#pragma once
#include <chrono>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "online/service_client.h"
#include "online/session.h"

namespace quill::online {

/// What the sign-in window is opened for.
enum class SignInMode {
  Login,
  LogoutThenLogin  ///< the browser's session ends first
};

/// What the pages of a sign-in brought.
struct SignInResult {
  std::string userName;  ///< of the redirect; may be empty
  std::string code;      ///< the authorisation code: a secret until it is exchanged

  bool operator==(const SignInResult&) const = default;
};

/// The way through the pages of a sign-in, whoever shows them: told of each page that has finished loading,
/// it says what comes next. Knows no state but its own; any one thread.
class SignInPages {
 public:
  SignInPages(const Endpoints& endpoints, SignInMode mode);

  /// The address that is loaded first.
  std::string FirstAddress() const;

  struct Step {
    std::string load;            ///< an address to load now; empty: none
    bool clearsCookies = false;  ///< before that, every cookie and the cache are deleted
    bool isFinished = false;     ///< there is a `Result`
  };

  /// A page has finished loading, well or not. Only pages over https count, and those of the machine itself
  /// where the sign-in service is there, too.
  Step PageFinished(std::string_view url);

  /// After the last step.
  const SignInResult& Result() const { return m_result; }

 private:
  bool IsTrusted(std::string_view url) const;

  const Endpoints m_endpoints;
  bool m_logsOut;
  SignInResult m_result;
};

/// Forgets, in memory, who was signed in, as every sign-in begins. The tokens stay. Command thread.
void BeginLogin(Session& session);

/// Forgets the account and the pending code, and saves that. Command thread.
Status<> BeginLogout(Session& session);

/// What may go wrong after the pages.
enum class SignInProblem { NoTokens, NoUser, NoNotebooks };

/// The fixed text that is shown for it.
std::string_view SignInProblemText(SignInProblem problem);

/// The rest of a sign-in, after the pages: exchanges the code and finds out who the user is and which account
/// his notebooks' links name. `tell` is called for each problem and the rest is tried nevertheless. Time-outs
/// are 60 seconds each; a request that the user ended is no problem. `now` is the moment from which the first
/// page count is due in a minute. Failure: the account could not be saved. Command thread.
Status<> FinishSignIn(Session& session, ServiceClient& client, const SignInResult& result,
                      std::chrono::system_clock::time_point now,
                      const std::function<void(SignInProblem)>& tell);

}  // namespace quill::online
