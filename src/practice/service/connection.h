#pragma once
#include <sys/types.h>

#include <array>
#include <chrono>
#include <cstddef>
#include <string_view>

#include "practice/service/web_exchange.h"

namespace quill::practice {

/// An accepted connection, owned: it waits for the client and for the end of the server at once, and can end
/// in the ways in which connections do end. Used by one thread.
class Connection {
 public:
  /// `stopper` becomes readable when the server stops.
  Connection(int socket, int stopper);
  ~Connection();
  Connection(const Connection&) = delete;
  Connection& operator=(const Connection&) = delete;

  /// True when there is something to read; false after `longest`, when the client has left, or at the stop.
  bool WaitReadable(std::chrono::milliseconds longest);

  /// Waits all that time; false as soon as the client has left or the server stops.
  bool Pause(std::chrono::milliseconds time) const;

  /// Bytes read; 0 at the end, −1 when there are none to be had.
  ssize_t Read(char* bytes, std::size_t most);

  /// Sends part of an answer, head first; −1 when the connection ends here.
  ssize_t Write(std::string_view bytes);

  /// How the connection ends with the answer that is written next.
  void EndWith(Ending ending) { m_ending = ending; }

  /// To be called behind an answer: whether another may follow.
  bool IsKept() const { return m_ending == Ending::Kept && !m_isBroken; }

  int Socket() const { return m_socket; }
  int PeerPort() const { return m_peerPort; }

 private:
  ssize_t WriteUpTo(std::string_view bytes);
  bool SendAll(std::string_view bytes);
  void WaitUntilSent() const;

  int m_socket;
  int m_stopper;
  int m_peerPort = 0;
  Ending m_ending = Ending::Kept;
  bool m_isBroken = false;
  bool m_hasHead = false;
  std::size_t m_bodyLeft = 0;  ///< of an answer that breaks off
  std::array<char, 8192> m_buffer;
  std::size_t m_from = 0;
  std::size_t m_to = 0;
};

}  // namespace quill::practice
