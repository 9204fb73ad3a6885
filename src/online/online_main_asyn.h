#pragma once
#include <chrono>
#include <functional>
#include <memory>
#include <optional>

#include "online/service_client.h"
#include "online/session.h"
#include "platform/background_http.h"
#include "platform/clock.h"

namespace quill::online {

/// The online work that goes on behind the user's back: chains of requests, one chain at a time and one
/// request at a time, which bring tokens and user and then have the pages counted. Tells nothing. Command
/// thread.
///
/// What comes back for an account that has changed meanwhile (the user has signed out, a command has fetched
/// tokens) is dropped.
class MOnlineOneNoteMain_Asyn {
 public:
  /// `getPageCount` is called when a chain has what it needs. The chain goes on in it, until it calls
  /// `EndChain`.
  MOnlineOneNoteMain_Asyn(Session session, platform::BackgroundHttp& http, const platform::Clock& clock,
                          std::function<void()> getPageCount);

  // Each begins a chain, or goes on in the one that is under way. None does anything while a request is.

  /// Exchanges the pending code, whatever comes of it only once, and goes on with the user; on a transport
  /// failure with a refresh.
  void RetrieveTokensByCode();

  /// Asks for fresh tokens and goes on with the page count. The access token is gone from here on until there
  /// is a new one; the refresh token stays when none comes.
  void RefreshTokens();

  /// Asks who the user is and goes on with the page count.
  void RetrieveUserIdByToken();

  using Handler = std::function<void(const std::optional<ServiceReply>&)>;

  /// Sends another request of the chain, whose answer goes to `handler`. One for a user who has gone
  /// meanwhile is dropped, and the chain ends.
  void Ask(platform::HttpRequest request, Handler handler);

  enum class ChainEnd {
    Done,   ///< or nothing could be asked
    Failed  ///< a request brought nothing
  };
  void EndChain(ChainEnd end);

  /// Whether a chain may begin: none is under way, and none has failed for a minute.
  bool MayStart(std::chrono::system_clock::time_point now) const;

  /// Lets a chain begin at once: somebody waits for it.
  void ForgetFailure() { m_failedAt.reset(); }

  /// Makes the next page count due in a minute.
  static void ResetTicks(SessionMemory& memory, std::chrono::system_clock::time_point now);

 private:
  /// Whether an answer that was asked for with one account is good for another.
  using IsFor = bool (*)(const Account& before, const Account& now);

  void Send(platform::HttpRequest request, Handler handler);
  void Exchange(platform::HttpRequest request, IsFor isFor, Handler handler);
  void GoOnWithUser(const std::optional<ServiceReply>& reply);
  void GoOnWithTokens(const std::optional<ServiceReply>& reply);
  void Save();

  Session m_session;
  platform::BackgroundHttp& m_http;
  const platform::Clock& m_clock;
  std::function<void()> m_getPageCount;
  bool m_running = false;   ///< a chain is under way
  bool m_isAsking = false;  ///< one of its requests is
  std::optional<std::chrono::system_clock::time_point> m_failedAt;
  std::shared_ptr<MOnlineOneNoteMain_Asyn*> m_self;  ///< answers that outlive this object find it gone
};

}  // namespace quill::online
