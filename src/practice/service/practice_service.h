#pragma once
#include <chrono>
#include <memory>
#include <string>
#include <vector>

#include "base/endpoints.h"
#include "base/result.h"
#include "practice/service/faults.h"
#include "practice/service/notebook_library.h"

namespace quill::practice {

struct ServiceOptions {
  int port = 0;                                  ///< 0: any that is free
  std::string documentHost = "d.docs.live.net";  ///< of the client links in lists
  std::chrono::seconds tokenLife{3600};
};

/// The identity platform, the sign-in service and the OneNote service for the practice notebook: one HTTP
/// server on the loopback, on threads of its own. There is one user, who signs in with any password. Any
/// thread.
class PracticeService {
 public:
  /// Fails when the port is taken.
  static Result<std::unique_ptr<PracticeService>> Start(std::unique_ptr<NotebookLibrary> library,
                                                        const ServiceOptions& options);
  ~PracticeService();

  int Port() const;

  /// The addresses under which the service is reached, with a client identifier that it accepts.
  Endpoints Addresses() const;

  /// What goes wrong from now on. Thread-safe.
  FaultPlan& Faults();

  /// The requests so far, "GET /v1.0/me/onenote/notebooks", with the query and without any secret.
  std::vector<std::string> Requests() const;
  void ForgetRequests();

  /// The connections that were accepted so far.
  int Connections() const;

  /// A signed-in user's tokens, without the pages: for tests and for starting signed in.
  struct Tokens {
    std::string access;
    std::string refresh;
  };
  Tokens IssueTokens();
  /// An authorisation code as the redirect would bring it; good for one exchange.
  std::string IssueCode();
  /// Makes every access token that was issued so far worthless.
  void ExpireAccessTokens();

 private:
  class Server;
  explicit PracticeService(std::unique_ptr<Server> server);
  std::unique_ptr<Server> m_server;
};

}  // namespace quill::practice
