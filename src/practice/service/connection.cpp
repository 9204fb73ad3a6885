#include "practice/service/connection.h"

#include <fcntl.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>

#include "content/unicode_text.h"

namespace quill::practice {
namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;

/// For a client that stops in the middle of a request, or takes nothing of its answer.
constexpr milliseconds kPatience{30'000};

void SetOption(int socket, int level, int name, int value) {
  ::setsockopt(socket, level, name, &value, sizeof(value));
}

/// Waits for one event on the socket; false at the deadline or when `stopper` becomes readable.
bool WaitFor(int socket, short event, int stopper, steady_clock::time_point deadline) {
  for (;;) {
    const auto left = std::chrono::ceil<milliseconds>(deadline - steady_clock::now());
    pollfd waits[] = {{socket, event, 0}, {stopper, POLLIN, 0}};
    const int ready = ::poll(waits, 2, static_cast<int>(std::clamp<std::int64_t>(left.count(), 0, 1 << 30)));
    if (ready < 0 && errno == EINTR) continue;
    if (ready <= 0 || waits[1].revents != 0) return false;
    if (waits[0].revents != 0) return true;
  }
}

/// The number behind "Content-Length:" in the head of an answer.
std::size_t ContentLength(std::string_view head) {
  constexpr std::string_view kName = "Content-Length:";
  const std::size_t at = head.find(kName);
  if (at == std::string_view::npos) return 0;
  return static_cast<std::size_t>(content::LeadingInteger(head.substr(at + kName.size())));
}

}  // namespace

Connection::Connection(int socket, int stopper) : m_socket(socket), m_stopper(stopper) {
  ::fcntl(m_socket, F_SETFD, FD_CLOEXEC);
  SetOption(m_socket, IPPROTO_TCP, TCP_NODELAY, 1);
  sockaddr_in peer{};
  socklen_t size = sizeof(peer);
  if (::getpeername(m_socket, reinterpret_cast<sockaddr*>(&peer), &size) == 0)
    m_peerPort = ntohs(peer.sin_port);
}

Connection::~Connection() {
  const bool isReset =
      m_ending == Ending::ResetBefore || m_ending == Ending::ResetDuring || m_ending == Ending::ResetAfter;
  if (isReset) {
    if (m_ending != Ending::ResetBefore) WaitUntilSent();
    // Closing without lingering is what sends a reset.
    const linger none{1, 0};
    ::setsockopt(m_socket, SOL_SOCKET, SO_LINGER, &none, sizeof(none));
  } else {
    ::shutdown(m_socket, SHUT_RDWR);
  }
  ::close(m_socket);
}

bool Connection::WaitReadable(milliseconds longest) {
  if (m_from < m_to) return true;
  if (!WaitFor(m_socket, POLLIN, m_stopper, steady_clock::now() + longest)) return false;
  char next = 0;
  return ::recv(m_socket, &next, 1, MSG_PEEK) > 0;
}

bool Connection::Pause(milliseconds time) const {
  const auto deadline = steady_clock::now() + time;
  if (WaitFor(m_socket, POLLIN, m_stopper, deadline)) {
    char next = 0;
    if (::recv(m_socket, &next, 1, MSG_PEEK) <= 0) return false;
    // The next request is here already: from now on only the stop can be told.
    WaitFor(-1, 0, m_stopper, deadline);
  }
  pollfd stop{m_stopper, POLLIN, 0};
  return ::poll(&stop, 1, 0) == 0;
}

ssize_t Connection::Read(char* bytes, std::size_t most) {
  if (m_from == m_to) {
    if (!WaitFor(m_socket, POLLIN, m_stopper, steady_clock::now() + kPatience)) return -1;
    const ssize_t got = ::recv(m_socket, m_buffer.data(), m_buffer.size(), 0);
    if (got <= 0) return got;
    m_from = 0;
    m_to = static_cast<std::size_t>(got);
  }
  const std::size_t count = std::min(most, m_to - m_from);
  std::memcpy(bytes, m_buffer.data() + m_from, count);
  m_from += count;
  return static_cast<ssize_t>(count);
}

ssize_t Connection::Write(std::string_view bytes) {
  if (m_isBroken || m_ending == Ending::ResetBefore) return -1;
  if (m_ending == Ending::ResetDuring || m_ending == Ending::CloseDuring) return WriteUpTo(bytes);
  if (!SendAll(bytes)) return -1;
  return static_cast<ssize_t>(bytes.size());
}

/// The head whole, then half of the body.
ssize_t Connection::WriteUpTo(std::string_view bytes) {
  if (!m_hasHead) {
    m_hasHead = true;
    m_bodyLeft = ContentLength(bytes) / 2;
    return SendAll(bytes) ? static_cast<ssize_t>(bytes.size()) : -1;
  }
  const std::size_t count = std::min(m_bodyLeft, bytes.size());
  m_bodyLeft -= count;
  if (!SendAll(bytes.substr(0, count)) || count < bytes.size()) return -1;
  return static_cast<ssize_t>(bytes.size());
}

bool Connection::SendAll(std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t sent = ::send(m_socket, bytes.data(), bytes.size(), MSG_NOSIGNAL | MSG_DONTWAIT);
    if (sent > 0) {
      bytes.remove_prefix(static_cast<std::size_t>(sent));
      continue;
    }
    const bool isFull = sent < 0 && (errno == EAGAIN || errno == EWOULDBLOCK);
    if (sent < 0 && errno == EINTR) continue;
    if (!isFull || !WaitFor(m_socket, POLLOUT, m_stopper, steady_clock::now() + kPatience)) {
      m_isBroken = true;
      return false;
    }
  }
  return true;
}

/// A reset throws away what has not left yet. With this option the socket is writable only when nothing
/// waits.
void Connection::WaitUntilSent() const {
  SetOption(m_socket, IPPROTO_TCP, TCP_NOTSENT_LOWAT, 1);
  WaitFor(m_socket, POLLOUT, m_stopper, steady_clock::now() + kPatience);
}

}  // namespace quill::practice
