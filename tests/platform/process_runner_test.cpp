#include "platform/process_runner.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <unistd.h>

#include <cstdlib>

#include "platform/posix/posix_process_runner.h"
#include "platform/processor_name.h"
#include "shell/temporary_folder.h"

namespace quill::platform {
namespace {

using namespace std::chrono_literals;
using std::chrono::steady_clock;

ProcessResult Finish(ProcessRequest request) {
  return PosixProcessRunner().Run(request);
}

ProcessRequest Shell(const std::string& script) {
  ProcessRequest request;
  request.command = {"/bin/sh", "-c", script};
  return request;
}

/// Whether the process goes away; it does as soon as its parent, or init, has noticed its end.
bool IsGone(pid_t pid) {
  const auto until = steady_clock::now() + 10s;
  while (::kill(pid, 0) == 0) {
    if (steady_clock::now() > until) return false;
    if (Finish(Shell("ps -o stat= -p " + std::to_string(pid) + " | grep -q Z")).ok()) return true;
  }
  return true;
}

// Names of files and fonts reach the program as they are; no shell may see "$(…)".
TEST(ProcessRunner, HandsArgumentsOnAsTheyAre) {
  const std::string hostile = "a b \"c\" 'd' $(touch x) `id`; \\ * \n é";
  ProcessRequest request;
  request.command = {"printf", "%s|", "", hostile, "-x"};
  EXPECT_EQ(Finish(request).output, "|" + hostile + "|-x|");
}

// A program works where it is told, reads what it is given, and otherwise nothing at all.
TEST(ProcessRunner, GivesFolderAndInput) {
  const test::TemporaryFolder folder;
  ProcessRequest request = Shell("pwd -P; cat; echo problem >&2; exit 3");
  request.folder = std::filesystem::canonical(folder.path());
  ProcessResult result = Finish(request);
  EXPECT_EQ(result.output, request.folder.string() + "\n");
  EXPECT_EQ(result.errors, "problem\n");
  EXPECT_EQ(result.end, ProcessEnd::Exited);
  EXPECT_EQ(result.status, 3);

  request = Shell("wc -c");
  request.input = std::string(1'000'000, 'x');
  EXPECT_EQ(std::atoi(Finish(request).output.c_str()), 1'000'000);
  request = Shell("exit 0");  // does not read it: nobody may block or die of it
  request.input = std::string(1'000'000, 'x');
  EXPECT_TRUE(Finish(request).ok());
}

// Open files of this process (a lock, a socket) must not live on in a program that it starts.
TEST(ProcessRunner, LeavesNothingOpenInTheChild) {
  const int open = ::open("/dev/null", O_RDONLY);  // without asking for it to be closed on exec
  const ProcessResult result =
      Finish(Shell("[ -e /dev/fd/" + std::to_string(open) + " ] && echo open || echo closed"));
  ::close(open);
  EXPECT_EQ(result.output, "closed\n");
}

// Why a program did not do its work decides what the user is told.
TEST(ProcessRunner, TellsHowItEnded) {
  ProcessRequest missing;
  missing.command = {"no-such-program-anywhere"};
  EXPECT_EQ(Finish(missing).end, ProcessEnd::NotFound);
  EXPECT_NE(Finish(missing).reason.find("no-such-program"), std::string::npos);
  missing.command = {"/etc/passwd"};
  EXPECT_EQ(Finish(missing).end, ProcessEnd::NotStarted);
  missing.command = {"true"};
  missing.folder = "/no/such/folder";
  EXPECT_EQ(Finish(missing).end, ProcessEnd::NotStarted);

  const ProcessResult killed = Finish(Shell("kill -SEGV $$"));
  EXPECT_EQ(killed.end, ProcessEnd::Signalled);
  EXPECT_EQ(killed.status, SIGSEGV);
}

// A program that writes without end fills neither the memory nor its pipe.
TEST(ProcessRunner, KeepsOnlySoMuchOutput) {
  ProcessRequest request = Shell("head -c 3000000 /dev/zero; echo end >&2");
  request.outputLimit = 1000;
  const ProcessResult result = Finish(request);
  EXPECT_TRUE(result.ok());
  EXPECT_TRUE(result.isCut);
  EXPECT_EQ(result.output.size(), 1000u);
  EXPECT_EQ(result.errors, "end\n");

  request = Shell("exec cat /dev/zero");
  request.outputLimit = 1000;
  request.deadline = 200ms;
  EXPECT_EQ(Finish(request).end, ProcessEnd::TimedOut);
}

// A program that hangs, and whatever it started, is gone when its time is over, even if it will not listen.
TEST(ProcessRunner, EndsTheWholeFamily) {
  for (const bool isCancelled : {false, true}) {
    ProcessRequest request =
        Shell("trap '' TERM; (trap '' TERM; while :; do sleep 60; done) & echo $!; wait; sleep 60");
    request.deadline = isCancelled ? 60s : 2s;
    int asked = 0;
    if (isCancelled) request.isCancelled = [&asked] { return ++asked > 40; };
    const auto begin = steady_clock::now();
    const ProcessResult result = Finish(request);
    EXPECT_LT(steady_clock::now() - begin, 10s);
    EXPECT_EQ(result.end, isCancelled ? ProcessEnd::Cancelled : ProcessEnd::TimedOut);
    const pid_t grandchild = std::atoi(result.output.c_str());
    ASSERT_GT(grandchild, 1);
    EXPECT_TRUE(IsGone(grandchild));
  }
}

// A helper left in the background keeps the pipe open; the result must not wait for it.
TEST(ProcessRunner, DoesNotWaitForWhatStaysBehind) {
  const auto begin = steady_clock::now();
  const ProcessResult result = Finish(Shell("sleep 30 & echo $!"));
  EXPECT_LT(steady_clock::now() - begin, 10s);
  EXPECT_TRUE(result.ok());
  const pid_t left = std::atoi(result.output.c_str());
  ASSERT_GT(left, 1);
  ::kill(left, SIGKILL);
}

// Which highlighter is taken on a Mac hangs on the last such line, from a fixed column on.
TEST(ProcessorName, IsTheTextBehindTheLabel) {
  EXPECT_EQ(ProcessorNameIn(
                "Hardware:\n      Processor Name: Intel\n      Processor Name: Apple M1 \n      Cores: 8\n"),
            "Apple M1");
  EXPECT_EQ(ProcessorNameIn("      Chip: Apple M1\n"), "");
  EXPECT_EQ(ProcessorNameIn("Processor Name: x"), "");
  EXPECT_TRUE(IsAppleProcessor("Apple M1"));
  EXPECT_FALSE(IsAppleProcessor("apple"));
}

}  // namespace
}  // namespace quill::platform
