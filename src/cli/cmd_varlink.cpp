#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <filesystem>
#include <memory>

#include "cli/commands.h"
#include "cli/console.h"
#include "content/unicode_text.h"
#include "files/links/risky_file.h"
#include "files/links/variable_link.h"
#include "platform/clock.h"
#include "platform/posix/detached_process.h"
#include "platform/posix/link_handler.h"
#include "platform/posix/xdg_workspace.h"
#include "shell/globals.h"

namespace quill::cli {
namespace {

namespace fs = std::filesystem;

files::VariableRoots RootsOf(const Call& call) {
  const shell::FolderRoots roots = shell::OpenGlobals(call.root, platform::SystemClock()).folders.roots;
  return files::FindVariableRoots(roots.userLibrary, roots.home);
}

const std::string& Checked(const std::string& argument) {
  if (argument.empty()) throw Stop(kWrongCall, "the argument is empty");
  if (!content::IsValidUtf8(argument)) throw Stop(kWrongCall, "the argument is not UTF-8");
  return argument;
}

int PrintVariableLink(const Call& call, const std::string& path) {
  std::error_code error;
  std::string whole = fs::absolute(Checked(path), error).lexically_normal().string();
  if (error) throw Stop(kWorkFailed, fmt::format("{}: {}", path, error.message()));
  if (whole.size() > 1 && whole.back() == '/') whole.pop_back();
  const std::string variablePath = files::ConvertFullNameToQVarPath(whole, RootsOf(call));
  if (variablePath.starts_with('/'))
    throw Stop(kWorkFailed, fmt::format("{} is in none of the folders that have a variable", whole));
  WriteOutput("", fmt::format("{}{}\n", files::kVariableScheme, files::EscapeWhereMisread(variablePath)));
  return kDone;
}

std::string Problem(const files::VariableTarget& target, const files::VariableRoots& roots) {
  switch (target.state) {
    case files::LinkState::Found:
      return {};
    case files::LinkState::Missing:
      return fmt::format("nothing is at {}", target.path);
    case files::LinkState::NoVariable:
      return fmt::format("the link begins with none of {}, {} and {}", files::kOneDrive,
                         files::kOneDriveForBusiness, files::kUserProfile);
    case files::LinkState::NoRoot:
      return roots.hasOneDrive ? "no folder of this machine stands for the link's variable"
                               : "the OneDrive client has no settings on this machine";
    case files::LinkState::Refused:
      break;
  }
  return "the link leads out of its folder";
}

/// The path of what a link leads to; stops when that is nothing.
std::string Resolved(const Call& call, const std::string& url) {
  const files::VariableRoots roots = RootsOf(call);
  const files::VariableTarget target = files::FindVariableTarget(Checked(url), roots);
  if (target.state != files::LinkState::Found) throw Stop(kWorkFailed, Problem(target, roots));
  return target.path;
}

int Open(const Call& call, const std::string& url, bool yes) {
  const std::string path = Resolved(call, url);
  if (!yes && files::IsRiskyFile(path))
    throw Stop(kWorkFailed, fmt::format("{} is a program or a script; --yes opens it all the same", path));
  const Status<> opened = platform::UsesDesktopEntries() ? platform::XdgWorkspace().OpenFile(path)
                                                         : platform::RunToEnd({"open", path});
  if (!opened.ok()) throw Stop(kWorkFailed, opened.error());
  return kDone;
}

}  // namespace

void AddVarLink(CLI::App& app, Call& call) {
  struct Options {
    std::string argument;
    bool yes = false;
  };
  auto options = std::make_shared<Options>();
  CLI::App* varLink = app.add_subcommand(
      "varlink", "Links to files by the folders that every machine has: OneDrive and home");
  varLink->require_subcommand(1);

  CLI::App* make = varLink->add_subcommand("make", "Print the link to a file or folder");
  make->add_option("path", options->argument, "The file or folder; it need not be there")
      ->required()
      ->type_name("PATH");
  make->callback([&call, options] { call.status = PrintVariableLink(call, options->argument); });

  CLI::App* resolve = varLink->add_subcommand("resolve", "Print the path that a link means on this machine");
  CLI::App* open = varLink->add_subcommand("open", "Open what a link means on this machine");
  for (CLI::App* command : {resolve, open}) {
    command->add_option("url", options->argument, "The link, beginning with qvar://")
        ->required()
        ->type_name("URL");
  }
  resolve->callback([&call, options] {
    WriteOutput("", Resolved(call, options->argument) + "\n");
    call.status = kDone;
  });
  open->add_flag("--yes", options->yes, "Also a program or a script");
  open->callback([&call, options] { call.status = Open(call, options->argument, options->yes); });
}

}  // namespace quill::cli
