#include "x11/child_process.h"

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <thread>

namespace quill::x11_test {
namespace {

using namespace std::chrono_literals;

[[noreturn]] void Become(std::vector<std::string> command, const ChildProcess::Environment& environment) {
  // A test that crashes takes its children with it.
  prctl(PR_SET_PDEATHSIG, SIGKILL);
  for (const auto& [name, value] : environment) setenv(name.c_str(), value.c_str(), 1);
  std::vector<char*> arguments;
  for (std::string& word : command) arguments.push_back(word.data());
  arguments.push_back(nullptr);
  execvp(arguments[0], arguments.data());
  _exit(127);
}

}  // namespace

void PauseBetweenChecks() {
  poll(nullptr, 0, 5);
}

ChildProcess::ChildProcess(std::vector<std::string> command, const Environment& environment,
                           std::string_view passWriteEndAs) {
  signal(SIGPIPE, SIG_IGN);
  int output[2];
  int input[2];
  if (pipe2(output, O_CLOEXEC) != 0 || pipe2(input, O_CLOEXEC) != 0) std::abort();
  if (!passWriteEndAs.empty()) {
    command.emplace_back(passWriteEndAs);
    command.push_back(std::to_string(output[1]));
  }
  m_pid = fork();
  if (m_pid == 0) {
    dup2(input[0], STDIN_FILENO);
    if (passWriteEndAs.empty()) {
      dup2(output[1], STDOUT_FILENO);
    } else {
      fcntl(output[1], F_SETFD, 0);
    }
    if (!std::getenv("QUILL_TEST_NOISE")) dup2(open("/dev/null", O_WRONLY), STDERR_FILENO);
    Become(std::move(command), environment);
  }
  close(output[1]);
  close(input[0]);
  m_output = output[0];
  m_input = input[1];
  fcntl(m_output, F_SETFL, O_NONBLOCK);
}

ChildProcess::~ChildProcess() {
  close(m_input);
  if (Running()) {  // its number may belong to nobody, or to others, once it has ended
    kill(m_pid, SIGTERM);
    if (!Eventually([this] { return !Running(); }, 2s)) {
      kill(m_pid, SIGKILL);
      waitpid(m_pid, nullptr, 0);
    }
  }
  close(m_output);
}

bool ChildProcess::Running() {
  if (m_pid > 0 && waitpid(m_pid, nullptr, WNOHANG) == m_pid) m_pid = 0;
  return m_pid > 0;
}

void ChildProcess::ReadFor(std::chrono::milliseconds time) {
  pollfd ready{m_output, POLLIN, 0};
  poll(&ready, 1, static_cast<int>(time.count()));
  char buffer[4096];
  for (ssize_t got = 0; (got = read(m_output, buffer, sizeof buffer)) > 0;) {
    m_partial.append(buffer, static_cast<std::size_t>(got));
  }
  for (std::size_t end = 0; (end = m_partial.find('\n')) != std::string::npos;) {
    m_lines.push_back(m_partial.substr(0, end));
    m_partial.erase(0, end + 1);
  }
}

const std::vector<std::string>& ChildProcess::Lines() {
  ReadFor(0ms);
  return m_lines;
}

std::string ChildProcess::WaitForLine(std::string_view start, std::chrono::milliseconds deadline) {
  const auto end = std::chrono::steady_clock::now() + deadline;
  for (std::size_t seen = 0;;) {
    for (; seen < m_lines.size(); ++seen) {
      if (m_lines[seen].compare(0, start.size(), start) == 0) return m_lines[seen].substr(start.size());
    }
    if (std::chrono::steady_clock::now() >= end) return "(none)";
    ReadFor(20ms);
  }
}

void ChildProcess::Say(std::string_view line) {
  const std::string text = std::string(line) + "\n";
  if (write(m_input, text.data(), text.size()) < 0) return;  // it has gone, which `Running` tells
}

}  // namespace quill::x11_test
