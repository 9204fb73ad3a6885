#include <unistd.h>

#include <CLI/CLI.hpp>
#include <cerrno>
#include <cstring>
#include <filesystem>

#include "cli/commands.h"
#include "cli/console.h"
#include "platform/posix/program_folder.h"

namespace quill::cli {
namespace {

namespace fs = std::filesystem;

constexpr const char* kProgram = "quill-practice";

/// Beside this program, or where it is installed.
fs::path FindProgram() {
  const fs::path own = platform::ProgramFolder();
  for (const char* folder : {".", "../libexec/quillmenu", "../lib/quillmenu"}) {
    std::error_code ignored;
    fs::path program = own / folder / kProgram;
    if (fs::exists(program, ignored)) return program;
  }
  throw Stop(kWorkFailed, std::string(kProgram) + " is not installed beside this program");
}

/// The service is a program of its own, because the web server would cost every start of this one. It takes
/// this one's place, so that signals reach it.
[[noreturn]] void Become(const fs::path& program, const fs::path& root, std::vector<std::string> words) {
  std::string path = program.string();
  std::string rootText = root.string();
  if (!root.empty()) words.insert(words.begin(), {"--root", rootText});
  std::vector<char*> arguments = {path.data()};
  for (std::string& word : words) arguments.push_back(word.data());
  arguments.push_back(nullptr);
  ::execv(path.c_str(), arguments.data());
  throw Stop(kWorkFailed, path + ": " + std::strerror(errno));
}

}  // namespace

void AddPractice(CLI::App& app, Call& call) {
  CLI::App* command = app.add_subcommand(
      "practice", "Serve the practice notebook as the online service does; see `quill practice --help`");
  command->prefix_command();
  command->fallthrough(false);
  command->set_help_flag();
  command->callback([command, &call] { Become(FindProgram(), call.root, command->remaining()); });
}

}  // namespace quill::cli
