#include "platform/posix/posix_process_runner.h"

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <sys/wait.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <system_error>
#include <thread>

#include "platform/posix/child_start.h"

namespace quill::platform {
namespace {

using Clock = std::chrono::steady_clock;

constexpr std::chrono::milliseconds kAskInterval{50};  ///< how often the caller is asked whether to go on
constexpr std::chrono::milliseconds kGrace{500};       ///< to put things in order after being asked to end
constexpr int kDrainRounds = 64;  ///< a pipe holds less; what grandchildren go on writing is not waited for

/// Notices the end of a child without reaping it, so that the number of its group cannot be given to anybody
/// else while it may still be signalled.
class EndWatch {
 public:
  explicit EndWatch(pid_t pid) {
    int ends[2];
    if (::pipe(ends) != 0) return;
    m_reading = FileHandle(ends[0]);
    FileHandle writing(ends[1]);
    for (const int end : ends) ::fcntl(end, F_SETFD, FD_CLOEXEC);
    try {
      m_thread = std::thread([pid, held = std::move(writing)] {
        siginfo_t info{};
        while (::waitid(P_PID, static_cast<id_t>(pid), &info, WEXITED | WNOWAIT) < 0 && errno == EINTR) {
        }
      });
    } catch (const std::system_error&) {
      m_reading.Close();  // no room for a thread: the child is stopped at once
    }
  }
  /// Only after the child's end is certain.
  ~EndWatch() {
    if (m_thread.joinable()) m_thread.join();
  }
  EndWatch(const EndWatch&) = delete;
  EndWatch& operator=(const EndWatch&) = delete;

  /// Hangs up when the child has ended; not open when the system has no room for it.
  const FileHandle& signal() const { return m_reading; }

 private:
  FileHandle m_reading;
  std::thread m_thread;
};

/// One stream of the child, up to the limit.
class Capture {
 public:
  Capture(FileHandle file, std::string& text, const ProcessRequest& request, bool& isCut)
      : m_file(std::move(file)), m_text(text), m_limit(request.outputLimit), m_isCut(isCut) {}

  int fd() const { return m_file.get(); }

  /// Takes what is there; true when there may be more.
  bool Read() {
    if (!m_file.isOpen()) return false;
    std::array<char, 65'536> block;
    const ssize_t size = ::read(m_file.get(), block.data(), block.size());
    if (size > 0) {
      const std::size_t kept = std::min(static_cast<std::size_t>(size), m_limit - m_text.size());
      m_text.append(block.data(), kept);
      m_isCut = m_isCut || kept < static_cast<std::size_t>(size);
      return true;
    }
    const bool isOver = size == 0 || (errno != EAGAIN && errno != EWOULDBLOCK && errno != EINTR);
    if (isOver) m_file.Close();
    return false;
  }

  void Drain() {
    for (int round = 0; round < kDrainRounds && Read(); ++round) {
    }
  }

 private:
  FileHandle m_file;
  std::string& m_text;
  std::size_t m_limit;
  bool& m_isCut;
};

/// Sees a started child to its end.
class Supervisor {
 public:
  Supervisor(Child child, const ProcessRequest& request, ProcessResult& result)
      : m_request(request),
        m_result(result),
        m_pid(child.pid),
        m_watch(child.pid),
        m_streams{Capture(std::move(child.output), result.output, request, result.isCut),
                  Capture(std::move(child.errors), result.errors, request, result.isCut)} {}

  /// However the run ends, nothing of the child is left before its watch is.
  ~Supervisor() {
    if (m_isReaped) return;
    ::kill(-m_pid, SIGKILL);
    Reap();
  }
  Supervisor(const Supervisor&) = delete;
  Supervisor& operator=(const Supervisor&) = delete;

  void Run() {
    m_result.end = ProcessEnd::Exited;
    if (!m_watch.signal().isOpen()) m_result.end = ProcessEnd::NotStarted;
    const Clock::time_point deadline = Clock::now() + m_request.deadline;
    while (m_result.end == ProcessEnd::Exited && !WaitForEvents(deadline)) {
      if (m_request.isCancelled && m_request.isCancelled()) m_result.end = ProcessEnd::Cancelled;
      if (m_result.end == ProcessEnd::Exited && Clock::now() >= deadline) m_result.end = ProcessEnd::TimedOut;
    }
    if (m_result.end != ProcessEnd::Exited) Stop();
    for (Capture& stream : m_streams) stream.Drain();
    Reap();
  }

 private:
  /// Reads for one interval at most; true when the child has ended.
  bool WaitForEvents(Clock::time_point until) {
    std::array<pollfd, 3> files{{{m_streams[0].fd(), POLLIN, 0},
                                 {m_streams[1].fd(), POLLIN, 0},
                                 {m_watch.signal().get(), POLLIN, 0}}};
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(until - Clock::now());
    const auto wait = std::clamp(left, std::chrono::milliseconds(0), kAskInterval);
    if (::poll(files.data(), files.size(), static_cast<int>(wait.count())) <= 0) return false;
    for (std::size_t i = 0; i < m_streams.size(); ++i) {
      if (files[i].revents != 0) m_streams[i].Read();
    }
    return files[2].revents != 0;
  }

  void Stop() {
    ::kill(-m_pid, SIGTERM);
    const Clock::time_point until = Clock::now() + kGrace;
    while (m_watch.signal().isOpen() && Clock::now() < until && !WaitForEvents(until)) {
    }
    ::kill(-m_pid, SIGKILL);  // whoever of the group did not listen; the number is still the child's
  }

  void Reap() {
    int status = 0;
    while (::waitpid(m_pid, &status, 0) < 0 && errno == EINTR) {
    }
    m_isReaped = true;
    if (m_result.end != ProcessEnd::Exited) return;
    if (WIFSIGNALED(status)) m_result.end = ProcessEnd::Signalled;
    m_result.status = WIFSIGNALED(status) ? WTERMSIG(status) : WEXITSTATUS(status);
  }

  const ProcessRequest& m_request;
  ProcessResult& m_result;
  pid_t m_pid;
  bool m_isReaped = false;
  EndWatch m_watch;
  std::array<Capture, 2> m_streams;
};

}  // namespace

ProcessResult PosixProcessRunner::Run(const ProcessRequest& request) {
  ProcessResult result;
  auto child = StartChild(request);
  if (!child) {
    result.end = child.error() == ENOENT ? ProcessEnd::NotFound : ProcessEnd::NotStarted;
    result.reason = (request.command.empty() ? std::string() : request.command.front() + ": ") +
                    std::strerror(child.error());
    return result;
  }
  Supervisor(std::move(*child), request, result).Run();
  return result;
}

}  // namespace quill::platform
