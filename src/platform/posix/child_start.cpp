#include "platform/posix/child_start.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>

namespace quill::platform {
namespace {

constexpr int kFirstPrivate = 3;  ///< below it are the three streams of a program

/// Both ends of a pipe, closed by exec, never one of the numbers 0 to 2.
struct Pipe {
  FileHandle reading;
  FileHandle writing;
};

/// The same file under a number that the child's streams do not need.
FileHandle AwayFromStreams(FileHandle file) {
  if (!file.isOpen()) return file;
  return FileHandle(::fcntl(file.get(), F_DUPFD_CLOEXEC, kFirstPrivate));
}

Result<Pipe, int> MakePipe() {
  int ends[2];
  if (::pipe(ends) != 0) return Failure{errno};
  Pipe made{AwayFromStreams(FileHandle(ends[0])), AwayFromStreams(FileHandle(ends[1]))};
  if (!made.reading.isOpen() || !made.writing.isOpen()) return Failure{errno};
  return made;
}

/// A file without a name that holds the input: nobody has to feed the child, and it may stop reading.
FileHandle InputFile(const std::optional<std::string>& input) {
  if (!input) return AwayFromStreams(FileHandle(::open("/dev/null", O_RDONLY | O_CLOEXEC)));
  std::FILE* file = std::tmpfile();
  if (file == nullptr) return {};
  const bool isWritten = std::fwrite(input->data(), 1, input->size(), file) == input->size() &&
                         std::fflush(file) == 0 && std::fseek(file, 0, SEEK_SET) == 0;
  FileHandle own(isWritten ? ::fcntl(fileno(file), F_DUPFD_CLOEXEC, kFirstPrivate) : -1);
  const int error = errno;
  static_cast<void>(std::fclose(file));
  errno = error;
  return own;
}

/// Everything that the child needs, laid out before the fork: afterwards nothing may be allocated.
struct Plan {
  const char* program;
  char* const* arguments;
  const char* folder;  ///< null: stay
  int streams[3];
  int report;
};

/// The file of a program: a name with a slash is one; others are looked for on PATH, in its absolute folders.
/// Empty when there is none. Unlike the system's own search this never falls back on a shell.
std::string FindProgram(const std::string& name) {
  if (name.find('/') != std::string::npos) return name;
  const char* variable = std::getenv("PATH");
  std::string_view rest = variable != nullptr ? variable : "/usr/bin:/bin";
  while (!rest.empty()) {
    const std::size_t end = std::min(rest.find(':'), rest.size());
    const std::string file = std::string(rest.substr(0, end)) + "/" + name;
    struct stat facts {};
    const bool isFile = file.front() == '/' && ::stat(file.c_str(), &facts) == 0 && S_ISREG(facts.st_mode);
    if (isFile && ::access(file.c_str(), X_OK) == 0) return file;
    rest.remove_prefix(std::min(end + 1, rest.size()));
  }
  return {};
}

/// Files that other parts of the process opened without asking for it to be closed on exec.
void CloseTheRestOnExec() {
#ifdef CLOSE_RANGE_CLOEXEC
  if (::close_range(kFirstPrivate, ~0U, CLOSE_RANGE_CLOEXEC) == 0) return;
#endif
  const long limit = std::min(::sysconf(_SC_OPEN_MAX), 65'536L);
  for (int fd = kFirstPrivate; fd < limit; ++fd) {
    const int flags = ::fcntl(fd, F_GETFD);
    if (flags >= 0) ::fcntl(fd, F_SETFD, flags | FD_CLOEXEC);
  }
}

void TakeDefaultSignals() {
  struct sigaction standard {};
  standard.sa_handler = SIG_DFL;
  for (int number = 1; number < NSIG; ++number) ::sigaction(number, &standard, nullptr);
  sigset_t none;
  sigemptyset(&none);
  ::sigprocmask(SIG_SETMASK, &none, nullptr);
}

/// Becomes the program; what fails is told through the report pipe, which a successful exec closes. Only
/// calls that are safe between fork and exec.
[[noreturn]] void Become(const Plan& plan) {
  ::setsid();  // a group of its own, and no terminal to ask anything on
  TakeDefaultSignals();
  CloseTheRestOnExec();
  bool isReady = plan.folder == nullptr || ::chdir(plan.folder) == 0;
  for (int stream = 0; stream < 3; ++stream) isReady = isReady && ::dup2(plan.streams[stream], stream) >= 0;
  if (isReady) ::execv(plan.program, plan.arguments);
  // A folder that is missing must not look like a program that is missing.
  const int error = isReady || errno != ENOENT ? errno : ENOTDIR;
  const ssize_t written = ::write(plan.report, &error, sizeof error);
  ::_exit(written == sizeof error ? 127 : 126);
}

/// The error that a child tells before it becomes the program; 0 when it became it.
int ReadReport(int report) {
  int error = 0;
  ssize_t size = 0;
  do {
    size = ::read(report, &error, sizeof error);
  } while (size < 0 && errno == EINTR);
  return size < 0 ? errno : error;
}

/// Starts the child. All signals are held back meanwhile, so that no handler of ours runs in it.
pid_t Fork(const Plan& plan) {
  sigset_t all;
  sigset_t before;
  sigfillset(&all);
  ::pthread_sigmask(SIG_SETMASK, &all, &before);
  const pid_t pid = ::fork();
  if (pid == 0) Become(plan);
  const int error = errno;
  ::pthread_sigmask(SIG_SETMASK, &before, nullptr);
  errno = error;
  return pid;
}

void Reap(pid_t pid) {
  while (::waitpid(pid, nullptr, 0) < 0 && errno == EINTR) {
  }
}

}  // namespace

Result<Child, int> StartChild(const ProcessRequest& request) {
  if (request.command.empty() || request.command.front().empty()) return Failure{ENOENT};
  std::vector<char*> arguments;
  for (const std::string& word : request.command) arguments.push_back(const_cast<char*>(word.c_str()));
  arguments.push_back(nullptr);

  FileHandle input = InputFile(request.input);
  if (!input.isOpen())
    return Failure{errno == ENOENT ? EIO : errno};  // it is not the program that is missing
  auto output = MakePipe();
  if (!output) return Failure{output.error()};
  auto errors = MakePipe();
  if (!errors) return Failure{errors.error()};
  auto report = MakePipe();
  if (!report) return Failure{report.error()};

  const std::string program = FindProgram(request.command.front());
  if (program.empty()) return Failure{ENOENT};
  const Plan plan{program.c_str(),
                  arguments.data(),
                  request.folder.empty() ? nullptr : request.folder.c_str(),
                  {input.get(), output->writing.get(), errors->writing.get()},
                  report->writing.get()};
  const pid_t pid = Fork(plan);
  if (pid < 0) return Failure{errno};
  report->writing.Close();
  if (const int error = ReadReport(report->reading.get()); error != 0) {
    Reap(pid);
    return Failure{error};
  }
  for (const FileHandle* end : {&output->reading, &errors->reading}) ::fcntl(end->get(), F_SETFL, O_NONBLOCK);
  return Child{pid, std::move(output->reading), std::move(errors->reading)};
}

}  // namespace quill::platform
