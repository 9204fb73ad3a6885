#include "practice/service/web_server.h"

#include <fcntl.h>
#include <httplib.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <csignal>
#include <future>
#include <limits>
#include <map>
#include <mutex>
#include <thread>

#include "platform/posix/file_handle.h"
#include "practice/service/connection.h"

namespace quill::practice {
namespace {

using std::chrono::milliseconds;

constexpr const char* kLoopback = "127.0.0.1";
constexpr const char* kForm = "application/x-www-form-urlencoded";
constexpr std::size_t kLargestBody = 64u << 20;
/// A kept connection occupies its thread while it is idle, and a browser alone keeps six.
constexpr std::size_t kThreads = 32;
constexpr milliseconds kLongestIdle{60'000};

/// The connection as the library wants it.
class LibraryStream final : public httplib::Stream {
 public:
  explicit LibraryStream(Connection& connection) : m_connection(connection) {}
  bool is_readable() const override { return true; }
  bool is_writable() const override { return true; }
  ssize_t read(char* bytes, std::size_t most) override { return m_connection.Read(bytes, most); }
  ssize_t write(const char* bytes, std::size_t size) override { return m_connection.Write({bytes, size}); }
  void get_remote_ip_and_port(std::string& ip, int& port) const override {
    ip = kLoopback;
    port = m_connection.PeerPort();
  }
  void get_local_ip_and_port(std::string& ip, int&) const override { ip = kLoopback; }
  socket_t socket() const override { return m_connection.Socket(); }

 private:
  Connection& m_connection;
};

WebRequest RequestOf(const httplib::Request& from) {
  WebRequest request;
  request.method = from.method;
  SetTarget(request, from.target);
  request.authorization = from.get_header_value("Authorization");
  request.cookie = from.get_header_value("Cookie");
  request.host = from.get_header_value("Host");
  request.origin = from.get_header_value("Origin");
  const bool isForm = from.get_header_value("Content-Type").starts_with(kForm);
  isForm ? void(request.form = ParseFields(from.body)) : void(request.body = from.body);
  return request;
}

/// Sends a number of bytes without ever having them all.
bool SendFiller(std::size_t length, httplib::DataSink& sink) {
  static const std::string kBlock(std::size_t{64} << 10, 'x');
  return sink.write(kBlock.data(), std::min(length, kBlock.size()));
}

void Fill(httplib::Response& response, const WebAnswer& answer) {
  response.status = answer.status;
  for (const auto& [name, value] : answer.headers) response.set_header(name, value);
  if (answer.filler > 0) {
    response.set_content_provider(
        answer.filler, answer.type,
        [](std::size_t, std::size_t length, httplib::DataSink& sink) { return SendFiller(length, sink); });
  } else if (answer.status != 204) {
    response.set_content(answer.body, answer.type);
  }
}

}  // namespace

/// The library's parser, router and writer on our own connections.
class WebServer::Listener final : public httplib::Server {
 public:
  explicit Listener(WebServer::Handler handler) : m_handler(std::move(handler)) {}

  ~Listener() override {
    if (!m_thread.joinable()) return;
    const char end = 0;
    [[maybe_unused]] const ssize_t written = ::write(m_stopWriter.get(), &end, 1);
    stop();
    m_thread.join();
  }

  Status<> Listen(int wanted) {
    if (!MakeStopper()) return Failure{std::string("no pipe can be made")};
    AddHandlers();
    set_address_family(AF_INET);
    // Without the library's own options, which would let two servers share a port.
    set_socket_options([](socket_t socket) {
      const int yes = 1;
      ::setsockopt(socket, SOL_SOCKET, SO_REUSEADDR, &yes, sizeof(yes));
      ::fcntl(socket, F_SETFD, FD_CLOEXEC);
    });
    m_port = wanted;
    const bool isBound =
        wanted == 0 ? (m_port = bind_to_any_port(kLoopback)) > 0 : bind_to_port(kLoopback, wanted);
    if (!isBound) return Failure{"port " + std::to_string(wanted) + " is taken"};
    std::promise<void> running;
    new_task_queue = [&running] {
      running.set_value();
      return new httplib::ThreadPool(kThreads);
    };
    m_thread = std::thread([this] { listen_after_bind(); });
    running.get_future().wait();
    return Done();
  }

  int Port() const { return m_port; }
  int Accepted() const { return m_accepted; }

 private:
  bool MakeStopper() {
    std::array<int, 2> ends{};
    if (::pipe(ends.data()) != 0) return false;
    for (const int end : ends) ::fcntl(end, F_SETFD, FD_CLOEXEC);
    m_stopReader = platform::FileHandle(ends[0]);
    m_stopWriter = platform::FileHandle(ends[1]);
    return true;
  }

  void AddHandlers() {
    set_payload_max_length(kLargestBody);
    set_keep_alive_max_count(std::numeric_limits<int>::max());
    set_keep_alive_timeout(std::chrono::duration_cast<std::chrono::seconds>(kLongestIdle).count());
    const auto answer = [this](const httplib::Request& request, httplib::Response& response) {
      Answer(request, response);
    };
    Get(".*", answer);
    Post(".*", answer);
    Put(".*", answer);
    Patch(".*", answer);
    Delete(".*", answer);
  }

  void Answer(const httplib::Request& from, httplib::Response& response) {
    Connection& connection = ConnectionOf(from);
    const WebAnswer answer =
        m_handler(RequestOf(from), [&connection](milliseconds time) { return connection.Pause(time); });
    connection.EndWith(answer.ending);
    Fill(response, answer);
  }

  Connection& ConnectionOf(const httplib::Request& request) {
    const std::lock_guard lock(m_mutex);
    return *m_connections.at(request.remote_port);
  }

  bool process_and_close_socket(socket_t socket) override {
    ++m_accepted;
    Connection connection(socket, m_stopReader.get());
    {
      const std::lock_guard lock(m_mutex);
      m_connections[connection.PeerPort()] = &connection;
    }
    LibraryStream stream(connection);
    bool isClosing = false;
    while (!isClosing && connection.IsKept() && connection.WaitReadable(kLongestIdle)) {
      // Answers are never packed: where one breaks off is then told by its own length.
      const bool isDone = process_request(stream, false, isClosing, [](httplib::Request& request) {
        request.headers.erase("Accept-Encoding");
      });
      if (!isDone) break;
    }
    const std::lock_guard lock(m_mutex);
    m_connections.erase(connection.PeerPort());
    return true;
  }

  WebServer::Handler m_handler;
  int m_port = 0;
  std::atomic<int> m_accepted = 0;
  platform::FileHandle m_stopReader;
  platform::FileHandle m_stopWriter;
  std::mutex m_mutex;
  std::map<int, Connection*> m_connections;  ///< by the client's port
  std::thread m_thread;
};

WebServer::WebServer(std::unique_ptr<Listener> listener) : m_listener(std::move(listener)) {}
WebServer::~WebServer() = default;

Result<std::unique_ptr<WebServer>> WebServer::Start(int port, Handler handler) {
  // The library ignores SIGPIPE for the whole process, which would pass on to its children; nothing here
  // needs it.
  struct sigaction before {};
  ::sigaction(SIGPIPE, nullptr, &before);
  auto listener = std::make_unique<Listener>(std::move(handler));
  ::sigaction(SIGPIPE, &before, nullptr);
  if (Status<> listens = listener->Listen(port); !listens.ok()) return Failure{listens.error()};
  return std::unique_ptr<WebServer>(new WebServer(std::move(listener)));
}

int WebServer::Port() const {
  return m_listener->Port();
}

int WebServer::Connections() const {
  return m_listener->Accepted();
}

}  // namespace quill::practice
