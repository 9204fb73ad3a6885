#pragma once
#include <functional>
#include <memory>

#include "base/result.h"
#include "practice/service/web_exchange.h"

namespace quill::practice {

/// A web server on the loopback, on threads of its own. Connections are kept as long as clients use them, one
/// thread each.
class WebServer {
 public:
  /// Called on any of the threads, several at a time.
  using Handler = std::function<WebAnswer(const WebRequest&, const Pause&)>;

  /// Port 0: any that is free. Fails when the port is taken.
  static Result<std::unique_ptr<WebServer>> Start(int port, Handler handler);

  /// Ends every connection and every wait at once.
  ~WebServer();

  int Port() const;

  /// The connections that were accepted so far.
  int Connections() const;

 private:
  class Listener;
  explicit WebServer(std::unique_ptr<Listener> listener);
  std::unique_ptr<Listener> m_listener;
};

}  // namespace quill::practice
