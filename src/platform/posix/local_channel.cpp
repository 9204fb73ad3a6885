#include "platform/posix/local_channel.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <list>
#include <thread>

namespace quill::platform {
namespace {

namespace fs = std::filesystem;
using Deadline = std::chrono::steady_clock::time_point;

constexpr std::size_t kLongestLine = 1 << 20;
constexpr std::chrono::seconds kRequestTime(5);  // for a client that connects and says nothing
constexpr std::size_t kMostConnections = 16;

class Socket {
 public:
  explicit Socket(int fd = -1) : m_fd(fd) {}
  ~Socket() {
    if (m_fd >= 0) ::close(m_fd);
  }
  Socket(Socket&& other) noexcept : m_fd(std::exchange(other.m_fd, -1)) {}
  Socket& operator=(Socket&& other) noexcept {
    std::swap(m_fd, other.m_fd);
    return *this;
  }
  int get() const { return m_fd; }
  explicit operator bool() const { return m_fd >= 0; }

 private:
  int m_fd;
};

Socket NewSocket() {
  Socket socket(::socket(AF_UNIX, SOCK_STREAM, 0));
  if (socket) ::fcntl(socket.get(), F_SETFD, FD_CLOEXEC);
  return socket;
}

bool FillAddress(const fs::path& path, sockaddr_un& address) {
  address = {};
  address.sun_family = AF_UNIX;
  const std::string text = path.string();
  if (text.size() >= sizeof(address.sun_path)) return false;
  std::memcpy(address.sun_path, text.data(), text.size());
  return true;
}

Socket Connect(const fs::path& path) {
  sockaddr_un address;
  Socket socket = NewSocket();
  if (!socket || !FillAddress(path, address)) return Socket();
  if (::connect(socket.get(), reinterpret_cast<const sockaddr*>(&address), sizeof(address)) != 0)
    return Socket();
  return socket;
}

/// Waits until the descriptor is readable; false at the deadline or when `stop` becomes readable.
bool WaitReadable(int fd, int stop, Deadline deadline) {
  for (;;) {
    const auto left =
        std::chrono::ceil<std::chrono::milliseconds>(deadline - std::chrono::steady_clock::now());
    if (left.count() <= 0) return false;
    pollfd waits[] = {{fd, POLLIN, 0}, {stop, POLLIN, 0}};
    const int ready =
        ::poll(waits, stop >= 0 ? 2 : 1, static_cast<int>(std::min<std::int64_t>(left.count(), 1 << 30)));
    if (ready < 0 && errno != EINTR) return false;
    if (stop >= 0 && waits[1].revents != 0) return false;
    if (waits[0].revents != 0) return true;
  }
}

Result<std::string> ReadLine(int fd, int stop, Deadline deadline) {
  std::string line;
  for (;;) {
    if (!WaitReadable(fd, stop, deadline)) return Failure{std::string("no answer in time")};
    char block[4096];
    const ssize_t got = ::read(fd, block, sizeof(block));
    if (got < 0 && errno == EINTR) continue;
    if (got <= 0) return Failure{std::string("the connection was closed")};
    line.append(block, static_cast<std::size_t>(got));
    const std::size_t end = line.find('\n');
    if (end != std::string::npos) return line.substr(0, end);
    if (line.size() > kLongestLine) return Failure{std::string("the line is too long")};
  }
}

bool WriteLine(int fd, std::string_view text) {
  std::string line(text);
  line += '\n';
  std::string_view rest = line;
  while (!rest.empty()) {
    const ssize_t sent = ::send(fd, rest.data(), rest.size(), MSG_NOSIGNAL);
    if (sent < 0 && errno == EINTR) continue;
    if (sent <= 0) return false;
    rest.remove_prefix(static_cast<std::size_t>(sent));
  }
  return true;
}

/// FNV-1a: a short name for a long root path.
std::uint64_t NameHash(std::string_view text) {
  std::uint64_t hash = 14695981039346656037u;
  for (const char c : text) hash = (hash ^ static_cast<unsigned char>(c)) * 1099511628211u;
  return hash;
}

fs::path RuntimeFolder() {
  const char* runtime = std::getenv("XDG_RUNTIME_DIR");
  if (runtime != nullptr && runtime[0] == '/') return fs::path(runtime) / "quillmenu";
  std::error_code error;
  fs::path temporary = fs::temp_directory_path(error);
  if (error) temporary = "/tmp";
  return temporary / fmt::format("quillmenu-{}", ::geteuid());
}

}  // namespace

Result<fs::path> LocalChannelPath(const fs::path& root) {
  const fs::path folder = RuntimeFolder();
  ::mkdir(folder.c_str(), 0700);
  struct stat info {};
  if (::lstat(folder.c_str(), &info) != 0)
    return Failure{fmt::format("{}: {}", folder.string(), std::strerror(errno))};
  if (!S_ISDIR(info.st_mode) || info.st_uid != ::geteuid() || (info.st_mode & 077) != 0) {
    return Failure{fmt::format("{}: is not a folder of this user alone", folder.string())};
  }
  std::error_code error;
  const fs::path whole = root.empty() ? fs::path() : fs::absolute(root, error).lexically_normal();
  return folder /
         (whole.empty() ? std::string("app.sock") : fmt::format("{:016x}.sock", NameHash(whole.string())));
}

struct LocalChannelServer::State {
  /// One client, served on a thread of its own: a command that waits for its user must not keep others out.
  struct Connection {
    std::thread thread;
    std::atomic<bool> done = false;
  };

  fs::path path;
  Handler handler;
  Socket listener;
  Socket stopRead;
  Socket stopWrite;
  std::list<Connection> connections;  ///< only touched by the listening thread, and after its end
  std::thread thread;

  void Serve() {
    while (!Stopped()) {
      const Deadline deadline = std::chrono::steady_clock::now() + std::chrono::hours(24);
      if (!WaitReadable(listener.get(), stopRead.get(), deadline)) continue;
      Socket client(::accept(listener.get(), nullptr, nullptr));
      JoinFinished();
      if (client && connections.size() < kMostConnections) Start(std::move(client));
    }
  }

  void Start(Socket client) {
    Connection& connection = connections.emplace_back();
    connection.thread = std::thread([this, &connection, socket = std::move(client)] {
      const Result<std::string> request =
          ReadLine(socket.get(), stopRead.get(), std::chrono::steady_clock::now() + kRequestTime);
      if (request.ok()) WriteLine(socket.get(), handler(*request));
      connection.done = true;
    });
  }

  void JoinFinished() {
    connections.remove_if([](Connection& connection) {
      if (connection.done) connection.thread.join();
      return connection.done.load();
    });
  }

  bool Stopped() const {
    pollfd wait = {stopRead.get(), POLLIN, 0};
    return ::poll(&wait, 1, 0) > 0;
  }
};

LocalChannelServer::LocalChannelServer(std::unique_ptr<State> state) : m_state(std::move(state)) {}

LocalChannelServer::~LocalChannelServer() {
  const char byte = 1;
  if (::write(m_state->stopWrite.get(), &byte, 1) == 1) m_state->thread.join();
  for (State::Connection& connection : m_state->connections) connection.thread.join();
  ::unlink(m_state->path.c_str());
}

Result<std::unique_ptr<LocalChannelServer>> LocalChannelServer::Listen(const fs::path& path,
                                                                       Handler handler) {
  if (Connect(path)) return Failure{fmt::format("{}: another process listens there", path.string())};
  ::unlink(path.c_str());
  auto state = std::make_unique<State>();
  state->path = path;
  state->handler = std::move(handler);
  sockaddr_un address;
  if (!FillAddress(path, address)) return Failure{fmt::format("{}: too long for a socket", path.string())};
  state->listener = NewSocket();
  int stop[2];
  const bool ok = state->listener && ::pipe(stop) == 0;
  if (!ok) return Failure{fmt::format("{}: {}", path.string(), std::strerror(errno))};
  state->stopRead = Socket(stop[0]);
  state->stopWrite = Socket(stop[1]);
  ::fcntl(state->listener.get(), F_SETFL, O_NONBLOCK);
  const auto* generic = reinterpret_cast<const sockaddr*>(&address);
  if (::bind(state->listener.get(), generic, sizeof(address)) != 0 || ::chmod(path.c_str(), 0600) != 0 ||
      ::listen(state->listener.get(), 8) != 0) {
    return Failure{fmt::format("{}: {}", path.string(), std::strerror(errno))};
  }
  State* raw = state.get();
  state->thread = std::thread([raw] { raw->Serve(); });
  return std::unique_ptr<LocalChannelServer>(new LocalChannelServer(std::move(state)));
}

Result<std::string> AskLocalChannel(const fs::path& path, std::string_view request,
                                    std::chrono::milliseconds deadline) {
  const Socket socket = Connect(path);
  if (!socket) return Failure{std::string("nobody listens")};
  if (!WriteLine(socket.get(), request)) return Failure{std::string("the connection was closed")};
  return ReadLine(socket.get(), -1, std::chrono::steady_clock::now() + deadline);
}

}  // namespace quill::platform
