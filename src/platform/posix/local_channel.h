#pragma once
#include <chrono>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "base/result.h"

namespace quill::platform {

/// Where the running application of this user (and of this test root, when there is one) listens: a socket
/// in a folder that only the user can enter, below $XDG_RUNTIME_DIR or the temporary folder. The path is
/// short whatever the root, as a socket's address must be (108 bytes on Linux, 104 on macOS).
/// Fails when the folder belongs to somebody else or lets others in.
Result<std::filesystem::path> LocalChannelPath(const std::filesystem::path& root);

/// Answers one-line requests from other processes of the same user, each on a thread of its own.
class LocalChannelServer {
 public:
  /// Gets the request line and returns the answer line, both without the line end. Runs on a thread of the
  /// server's, several at once; may take as long as the work takes.
  using Handler = std::function<std::string(std::string_view request)>;

  /// Starts to listen. Fails when another process listens there already (the path is then left alone); a
  /// socket that nobody listens on any more is replaced.
  static Result<std::unique_ptr<LocalChannelServer>> Listen(const std::filesystem::path& path,
                                                            Handler handler);

  /// Stops listening, waits for the answer under way, removes the socket.
  ~LocalChannelServer();
  LocalChannelServer(const LocalChannelServer&) = delete;
  LocalChannelServer& operator=(const LocalChannelServer&) = delete;

 private:
  struct State;
  explicit LocalChannelServer(std::unique_ptr<State> state);
  std::unique_ptr<State> m_state;
};

/// Sends one line and returns the answer. The failure says that nobody listens, or that no answer came in
/// time.
Result<std::string> AskLocalChannel(const std::filesystem::path& path, std::string_view request,
                                    std::chrono::milliseconds deadline);

}  // namespace quill::platform
