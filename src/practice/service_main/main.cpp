#include <fmt/format.h>
#include <pthread.h>

#include <CLI/CLI.hpp>
#include <csignal>
#include <cstdio>
#include <filesystem>
#include <memory>

#include "base/version.h"
#include "platform/clock.h"
#include "practice/built_in_pages.h"
#include "practice/page_store.h"
#include "practice/service/practice_service.h"
#include "practice/service/store_library.h"
#include "shell/globals.h"

namespace {

namespace fs = std::filesystem;
using namespace quill;

constexpr int kWorkFailed = 1;
constexpr int kWrongCall = 2;

/// The call, as it was given.
struct Options {
  fs::path root;
  fs::path data;
  practice::ServiceOptions service;
  long long tokenLife = 3600;
  long long latency = 0;
  std::vector<std::string> faults;
  bool tellsSignIn = false;
};

void AddOptions(CLI::App& app, Options& options) {
  app.set_version_flag("--version", std::string("quill-practice ") + kVersion);
  app.add_option("--root", options.root, "Keep every folder of the program below DIR (for tests and trials)")
      ->envname("QUILL_ROOT")
      ->take_last()
      ->type_name("DIR");
  app.add_option("--port", options.service.port, "Port on this machine; 0 takes any that is free")
      ->check(CLI::Range(0, 65535))
      ->type_name("N");
  app.add_option("--data", options.data, "Folder with the pages; the practice notebook's own when not given")
      ->type_name("DIR");
  app.add_option("--latency", options.latency, "Hold each answer back for so long")
      ->check(CLI::Range(0, 600'000))
      ->type_name("MS");
  app.add_option("--fault", options.faults, "What goes wrong: NAME[@PATH][+SKIP][xCOUNT]; may be given again")
      ->allow_extra_args(false)
      ->type_name("FAULT");
  app.add_option("--token-life", options.tokenLife, "How long an access token is good; 3600 when not given")
      ->check(CLI::Range(0, 31'536'000))
      ->type_name("SECONDS");
  app.add_flag("--sign-in", options.tellsSignIn, "Tell how to sign in, and do nothing else");
  std::string names;
  for (const practice::FaultKind kind : practice::AllFaults())
    names += fmt::format("  {}\n", practice::FaultName(kind));
  app.footer(fmt::format(
      "Faults (NAME); a fault strikes requests whose path contains PATH, after SKIP good ones, COUNT "
      "times:\n{}"
      "While it runs: POST /practice/faults with a JSON array of faults replaces them, with {{\"latencyMs\": "
      "N}} sets\n"
      "the delay, GET shows both and DELETE ends them. Nothing but this machine can reach the service.",
      names));
}

void TellSignIn() {
  fmt::print(
      "Start the service, set the variables that it prints, then sign in as usual: the page takes the user "
      "{}\n"
      "with any password. `quill signin` does the same without a window.\n",
      "practice@example.com");
}

/// One variable a line, as a shell and `env` read them.
void TellAddresses(const Endpoints& addresses) {
  fmt::print(
      "QUILL_GRAPH_URL={}\nQUILL_IDENTITY_URL={}\nQUILL_SIGNIN_URL={}\nQUILL_WEBAPP_URL={}\n"
      "QUILL_DOCUMENT_HOST={}\nQUILL_CLIENT_ID={}\n",
      addresses.graph, addresses.identity, addresses.signIn, addresses.webApp, addresses.documentHost,
      addresses.clientId);
  std::fflush(stdout);
}

int Fail(int status, std::string_view words) {
  fmt::print(stderr, "quill-practice: {}\n", words);
  return status;
}

/// The folder with the pages, with the first ones in it when it was empty.
Result<fs::path> OpenPages(const Options& options) {
  fs::path folder = options.data;
  if (folder.empty()) {
    const platform::SystemClock clock;
    folder = shell::OpenGlobals(options.root, clock).folders.SupportFolder / "Practice";
  }
  const Result<practice::PageStore> store = practice::PageStore::Open(folder, practice::BuiltInPages());
  if (!store.ok()) return Failure{store.error()};
  return folder;
}

/// Serves until one of the signals comes, which every thread has blocked.
int Serve(const Options& options, std::vector<practice::Fault> faults, const sigset_t& ends) {
  const Result<fs::path> pages = OpenPages(options);
  if (!pages.ok()) return Fail(kWorkFailed, pages.error());
  practice::ServiceOptions service = options.service;
  service.tokenLife = std::chrono::seconds(options.tokenLife);
  service.documentHost = FindEndpoints().documentHost;
  const auto started =
      practice::PracticeService::Start(std::make_unique<practice::StoreLibrary>(*pages), service);
  if (!started.ok()) return Fail(kWorkFailed, started.error());
  (*started)->Faults().Replace(std::move(faults));
  (*started)->Faults().SetLatency(std::chrono::milliseconds(options.latency));
  TellAddresses((*started)->Addresses());
  int signal = 0;
  sigwait(&ends, &signal);
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  Options options;
  CLI::App app("Serves the practice notebook on this machine as the online service does.", "quill-practice");
  AddOptions(app, options);
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& problem) {
    return problem.get_exit_code() == 0 ? app.exit(problem) : Fail(kWrongCall, problem.what());
  }
  std::vector<practice::Fault> faults;
  for (const std::string& text : options.faults) {
    Result<practice::Fault> fault = practice::ParseFault(text);
    if (!fault.ok()) return Fail(kWrongCall, fault.error());
    faults.push_back(std::move(*fault));
  }
  if (options.tellsSignIn) {
    TellSignIn();
    return 0;
  }
  sigset_t ends;
  sigemptyset(&ends);
  for (const int signal : {SIGINT, SIGTERM, SIGHUP}) sigaddset(&ends, signal);
  pthread_sigmask(SIG_BLOCK, &ends, nullptr);
  try {
    return Serve(options, std::move(faults), ends);
  } catch (const std::exception& problem) {
    return Fail(kWorkFailed, problem.what());
  }
}
