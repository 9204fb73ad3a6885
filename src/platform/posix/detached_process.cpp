#include "platform/posix/detached_process.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

namespace quill::platform {
namespace {

/// The words of a command as exec takes them; valid as long as the command.
std::vector<char*> Arguments(const std::vector<std::string>& command) {
  std::vector<char*> arguments;
  arguments.reserve(command.size() + 1);
  for (const std::string& word : command) arguments.push_back(const_cast<char*>(word.c_str()));
  arguments.push_back(nullptr);
  return arguments;
}

/// Becomes the program, in a session of its own with its streams on the null device. What fails is told
/// through `report`, which a successful exec closes. Only calls that are safe between fork and exec.
[[noreturn]] void Become(char* const* arguments, int report) {
  ::setsid();
  const int null = ::open("/dev/null", O_RDWR);
  for (int stream = 0; stream < 3 && null >= 0; ++stream) ::dup2(null, stream);
  ::execvp(arguments[0], arguments);
  const int error = errno;
  const ssize_t written = ::write(report, &error, sizeof error);
  ::_exit(written == sizeof error ? 127 : 126);
}

int WaitForEnd(pid_t child) {
  int status = 0;
  while (::waitpid(child, &status, 0) < 0 && errno == EINTR) {
  }
  return status;
}

enum class Parent { Leaves, Waits };

Status<> Start(const std::vector<std::string>& command, Parent parent) {
  const std::vector<char*> arguments = Arguments(command);
  int report[2];
  if (::pipe(report) != 0) return Failure{std::string(std::strerror(errno))};
  for (const int end : report) ::fcntl(end, F_SETFD, FD_CLOEXEC);
  const pid_t child = ::fork();
  if (child == 0) {
    // A second fork makes the program nobody's child to be waited for.
    if (parent == Parent::Leaves && ::fork() != 0) ::_exit(0);
    Become(arguments.data(), report[1]);
  }
  ::close(report[1]);
  int error = child < 0 ? errno : 0;
  while (child > 0 && ::read(report[0], &error, sizeof error) < 0 && errno == EINTR) {
  }
  ::close(report[0]);
  const int status = child > 0 ? WaitForEnd(child) : 0;
  if (error != 0) return Failure{command.front() + ": " + std::strerror(error)};
  if (!WIFEXITED(status) || WEXITSTATUS(status) != 0) return Failure{command.front() + " failed"};
  return Done();
}

}  // namespace

Status<> StartDetached(const std::vector<std::string>& command) {
  return Start(command, Parent::Leaves);
}

Status<> RunToEnd(const std::vector<std::string>& command) {
  return Start(command, Parent::Waits);
}

}  // namespace quill::platform
