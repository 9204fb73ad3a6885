#include "online/sign_in.h"

#include "content/find_text.h"
#include "content/text_between.h"
#include "online/online_main_asyn.h"
#include "online/token_requests.h"

namespace quill::online {
namespace {

constexpr std::chrono::seconds kDeadline{60};

bool Has(std::string_view url, std::string_view part) {
  return content::FindText(url, part) != std::string_view::npos;
}

/// The host that an address over plain http names, without user and port.
std::string_view PlainHost(std::string_view url) {
  constexpr std::string_view kScheme = "http://";
  if (!url.starts_with(kScheme)) return {};
  url.remove_prefix(kScheme.size());
  std::string_view host = url.substr(0, url.find_first_of("/?#"));
  const std::size_t at = host.rfind('@');
  if (at != std::string_view::npos) host.remove_prefix(at + 1);
  const std::size_t behindBrackets = host.starts_with('[') ? host.find(']') : 0;
  return host.substr(0, host.find(':', behindBrackets));
}

bool IsThisMachine(std::string_view url) {
  const std::string_view host = PlainHost(url);
  return host == "127.0.0.1" || host == "localhost" || host == "[::1]";
}

void ForgetUser(Account& account) {
  account.ClientUrlAccountId.clear();
  account.OnlineOneNoteUserId.clear();
  account.OnlineOneNoteUserPrincipalName.clear();
}

void ForgetTokens(Account& account) {
  account.OnlineOneNoteAccessToken.clear();
  account.OnlineOneNoteRefreshToken.clear();
}

/// The steps of `FinishSignIn` that ask the services.
class Finish {
 public:
  Finish(Session& session, ServiceClient& client, const std::function<void(SignInProblem)>& tell)
      : m_session(session), m_client(client), m_tell(tell) {}

  void ExchangeCode() {
    if (m_session.memory.PendingAuthCode.empty()) return;
    const auto reply = Ask(CodeRequest(m_session.endpoints, m_session.memory.PendingAuthCode, kDeadline),
                           SignInProblem::NoTokens);
    m_session.memory.PendingAuthCode.clear();
    if (!reply) return;
    TakeTokens(reply->body, m_session.account);
    if (!IsSignedIn()) return;
    m_session.memory.TryRefreshTokens = 0;
    Save();
  }

  void FindUser() {
    if (!IsSignedIn()) return;
    const auto reply =
        Ask(UserRequest(m_session.endpoints, m_session.account.OnlineOneNoteAccessToken, kDeadline),
            SignInProblem::NoUser);
    if (!reply) return;
    TakeUser(reply->body, m_session.account);
    Save();
  }

  void FindLinkAccount() {
    if (!IsSignedIn()) return;
    const auto reply =
        Ask(NotebooksRequest(m_session.endpoints, m_session.account, kDeadline), SignInProblem::NoNotebooks);
    if (!reply) return;
    m_session.account.ClientUrlAccountId =
        GetAccountIdFromNotebookJson(reply->body, m_session.endpoints.documentHost);
    Save();
  }

  void Save() { m_saved = m_session.save(); }
  Status<> Saved() const { return m_saved; }

 private:
  bool IsSignedIn() const { return !m_session.account.OnlineOneNoteAccessToken.empty(); }

  std::optional<ServiceReply> Ask(platform::HttpRequest request, SignInProblem problem) {
    auto reply = m_client.Send(std::move(request));
    if (!reply && !m_client.IsCancelled()) m_tell(problem);
    return reply;
  }

  Session& m_session;
  ServiceClient& m_client;
  const std::function<void(SignInProblem)>& m_tell;
  Status<> m_saved = Done();
};

}  // namespace

SignInPages::SignInPages(const Endpoints& endpoints, SignInMode mode)
    : m_endpoints(endpoints), m_logsOut(mode == SignInMode::LogoutThenLogin) {}

std::string SignInPages::FirstAddress() const {
  return m_logsOut ? LogoutUrl(m_endpoints) : AuthorizeUrl(m_endpoints);
}

SignInPages::Step SignInPages::PageFinished(std::string_view url) {
  if (IsTrusted(url)) {
    if (Has(url, "&username="))
      m_result.userName = content::ReplaceAll(GetFieldValueFromURL(url, "username"), "%40", "@");
    if (Has(url, "?code=")) m_result.code = GetFieldValueFromURL(url, "code");
  }
  Step step;
  step.isFinished = !m_result.code.empty();
  if (m_logsOut && !step.isFinished) {
    m_logsOut = false;
    step.clearsCookies = true;
    step.load = AuthorizeUrl(m_endpoints);
  }
  return step;
}

/// A page that was changed on its way could hand us a code of somebody else's account.
bool SignInPages::IsTrusted(std::string_view url) const {
  return url.starts_with("https://") || (IsThisMachine(url) && IsThisMachine(m_endpoints.signIn));
}

void BeginLogin(Session& session) {
  ForgetUser(session.account);
}

Status<> BeginLogout(Session& session) {
  session.memory.PendingAuthCode.clear();
  session.memory.pages = {};
  session.memory.resolvedPages.Clear();
  ForgetUser(session.account);
  ForgetTokens(session.account);
  return session.save();
}

std::string_view SignInProblemText(SignInProblem problem) {
  switch (problem) {
    case SignInProblem::NoTokens:
      return "Get token - authorization code error!";
    case SignInProblem::NoUser:
      return "Get Microsoft user information failure!";
    case SignInProblem::NoNotebooks:
      return "Get client user information failure!";
  }
  return "";
}

Status<> FinishSignIn(Session& session, ServiceClient& client, const SignInResult& result,
                      std::chrono::system_clock::time_point now,
                      const std::function<void(SignInProblem)>& tell) {
  Finish finish(session, client, tell);
  session.memory.PendingAuthCode = result.code;
  if (!result.userName.empty()) session.account.OnlineOneNoteUserId = result.userName;
  ForgetTokens(session.account);
  finish.Save();
  finish.ExchangeCode();
  finish.FindUser();
  finish.FindLinkAccount();
  if (!session.account.OnlineOneNoteUserId.empty()) MOnlineOneNoteMain_Asyn::ResetTicks(session.memory, now);
  return finish.Saved();
}

}  // namespace quill::online
