#include "online/online_main_asyn.h"

#include "online/token_operations.h"
#include "online/token_requests.h"

namespace quill::online {

MOnlineOneNoteMain_Asyn::MOnlineOneNoteMain_Asyn(Session session, platform::BackgroundHttp& http,
                                                 const platform::Clock& clock,
                                                 std::function<void()> getPageCount)
    : m_session(std::move(session)),
      m_http(http),
      m_clock(clock),
      m_getPageCount(std::move(getPageCount)),
      m_self(std::make_shared<MOnlineOneNoteMain_Asyn*>(this)) {}

void MOnlineOneNoteMain_Asyn::RetrieveTokensByCode() {
  if (m_isAsking) return;
  const std::string code = std::exchange(m_session.memory.PendingAuthCode, {});
  if (code.empty()) return EndChain(ChainEnd::Done);
  Send(CodeRequest(m_session.endpoints, code, kTokenDeadline), [this](const auto& reply) {
    if (!reply) return RefreshTokens();
    TakeTokens(reply->body, m_session.account);
    if (!m_session.account.OnlineOneNoteAccessToken.empty()) Save();
    RetrieveUserIdByToken();
  });
}

void MOnlineOneNoteMain_Asyn::RefreshTokens() {
  if (m_isAsking) return;
  Account& account = m_session.account;
  if (account.OnlineOneNoteRefreshToken.empty()) return EndChain(ChainEnd::Done);
  account.OnlineOneNoteAccessToken.clear();
  Send(RefreshRequest(m_session.endpoints, account.OnlineOneNoteRefreshToken, kTokenDeadline),
       [this](const auto& reply) { GoOnWithTokens(reply); });
}

void MOnlineOneNoteMain_Asyn::GoOnWithTokens(const std::optional<ServiceReply>& reply) {
  if (!reply || !HasAccessToken(reply->body)) return EndChain(ChainEnd::Failed);
  TakeTokens(reply->body, m_session.account);
  if (!m_session.account.OnlineOneNoteAccessToken.empty()) Save();
  m_getPageCount();
}

void MOnlineOneNoteMain_Asyn::RetrieveUserIdByToken() {
  if (m_isAsking) return;
  const std::string& token = m_session.account.OnlineOneNoteAccessToken;
  if (token.empty()) return EndChain(ChainEnd::Done);
  Send(UserRequest(m_session.endpoints, token, kUserDeadline),
       [this](const auto& reply) { GoOnWithUser(reply); });
}

void MOnlineOneNoteMain_Asyn::GoOnWithUser(const std::optional<ServiceReply>& reply) {
  if (!reply) return EndChain(ChainEnd::Failed);
  TakeUser(reply->body, m_session.account);
  Save();
  if (m_session.account.OnlineOneNoteUserId.empty()) return EndChain(ChainEnd::Failed);
  m_getPageCount();
}

void MOnlineOneNoteMain_Asyn::EndChain(ChainEnd end) {
  m_running = false;
  m_failedAt.reset();
  if (end == ChainEnd::Failed) m_failedAt = m_clock.Now();
}

bool MOnlineOneNoteMain_Asyn::MayStart(std::chrono::system_clock::time_point now) const {
  constexpr std::chrono::seconds kPause{60};
  if (m_running) return false;
  // A clock that was set back must not make the pause longer.
  return !m_failedAt || now < *m_failedAt || now >= *m_failedAt + kPause;
}

void MOnlineOneNoteMain_Asyn::ResetTicks(SessionMemory& memory, std::chrono::system_clock::time_point now) {
  constexpr std::chrono::seconds kAheadOfCount{1740};  // of the 1800 between two counts
  memory.LastCountCheckTime =
      std::chrono::floor<std::chrono::seconds>(now - kAheadOfCount).time_since_epoch().count();
}

void MOnlineOneNoteMain_Asyn::Send(platform::HttpRequest request, Handler handler) {
  Exchange(
      std::move(request), [](const Account& before, const Account& now) { return before == now; },
      std::move(handler));
}

void MOnlineOneNoteMain_Asyn::Ask(platform::HttpRequest request, Handler handler) {
  if (m_isAsking) return;
  const IsFor sameUser = [](const Account& before, const Account& now) {
    return before.OnlineOneNoteUserId == now.OnlineOneNoteUserId;
  };
  Exchange(std::move(request), sameUser, std::move(handler));
}

void MOnlineOneNoteMain_Asyn::Exchange(platform::HttpRequest request, IsFor isFor, Handler handler) {
  m_running = true;
  m_isAsking = true;
  m_http.Send(std::move(request), [self = std::weak_ptr(m_self), before = m_session.account, isFor,
                                   handler = std::move(handler)](HttpAnswer answer) {
    const auto alive = self.lock();
    if (alive == nullptr) return;
    MOnlineOneNoteMain_Asyn& worker = **alive;
    worker.m_isAsking = false;
    if (!isFor(before, worker.m_session.account)) return worker.EndChain(ChainEnd::Done);
    handler(ReplyOf(std::move(answer)));
  });
}

void MOnlineOneNoteMain_Asyn::Save() {
  // Nobody is there to be told; what could not be saved is good for this run.
  static_cast<void>(m_session.save());
}

}  // namespace quill::online
