#include "online/token_operations.h"

#include "online/token_requests.h"

namespace quill::online {
namespace {

constexpr std::int64_t kMostTries = 4;

/// These operations tell nothing: what could not be saved is good for this run, and its end is a sign-in.
void Save(const Session& session) {
  static_cast<void>(session.save());
}

}  // namespace

void RetrieveTokensByCode(Session& session, ServiceClient& client) {
  SessionMemory& memory = session.memory;
  if (memory.PendingAuthCode.empty()) return;
  const auto reply = client.Send(CodeRequest(session.endpoints, memory.PendingAuthCode, kTokenDeadline));
  if (!reply) return;
  memory.PendingAuthCode.clear();
  TakeTokens(reply->body, session.account);
  if (session.account.OnlineOneNoteAccessToken.empty()) return;
  memory.TryRefreshTokens = 0;
  Save(session);
}

void RefreshTokens(Session& session, ServiceClient& client) {
  Account& account = session.account;
  std::int64_t& tries = session.memory.TryRefreshTokens;
  if (account.OnlineOneNoteRefreshToken.empty()) return;
  if (tries < kMostTries) {
    const auto reply =
        client.Send(RefreshRequest(session.endpoints, account.OnlineOneNoteRefreshToken, kTokenDeadline));
    if (!reply && client.IsCancelled()) return;
    TakeTokens(reply ? reply->body : "", account);
    ++tries;
    if (!account.OnlineOneNoteAccessToken.empty()) {
      tries = 0;
      Save(session);
    }
  }
  if (tries >= kMostTries) {
    tries = 0;
    account.OnlineOneNoteAccessToken.clear();
    account.OnlineOneNoteRefreshToken.clear();
  }
}

void RetrieveUserIdByToken(Session& session, ServiceClient& client) {
  Account& account = session.account;
  if (account.OnlineOneNoteAccessToken.empty()) return;
  const auto reply =
      client.Send(UserRequest(session.endpoints, account.OnlineOneNoteAccessToken, kUserDeadline));
  if (!reply) return;
  TakeUser(reply->body, account);
  Save(session);
}

}  // namespace quill::online
