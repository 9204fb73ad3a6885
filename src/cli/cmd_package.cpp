#include <fmt/chrono.h>
#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <memory>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "cli/commands.h"
#include "cli/console.h"
#include "cli/interrupts.h"
#include "cli/terminal_progress.h"
#include "files/store/a4_section.h"
#include "files/store/extractor.h"
#include "files/store/notebook_list.h"
#include "files/store/notebook_package.h"
#include "files/store/onenote_store.h"
#include "files/store/package_restore.h"
#include "files/store/section_file.h"
#include "files/store/section_restore.h"
#include "platform/posix/creation_date.h"
#include "platform/posix/posix_process_runner.h"
#include "shell/globals.h"
#include "shell/package_actions.h"
#include "shell/package_messages.h"

namespace quill::cli {
namespace {

namespace fs = std::filesystem;

/// The folder of the local notebooks. `otherwise` is used where OneNote has none.
fs::path CacheFolder(const shell::Globals& globals, const fs::path& otherwise = {}) {
  std::error_code error;
  if (!otherwise.empty() && !fs::is_directory(otherwise, error))
    throw Stop(kWrongCall, otherwise.string() + ": there is no such folder");
  if (!otherwise.empty()) return otherwise;
  const fs::path folder = files::GetOneNoteCacheFolder(shell::OneNoteLibraries(globals.folders.roots));
  if (folder.empty()) throw Stop(kWorkFailed, "OneNote folder not found!!");
  return folder;
}

std::vector<files::MAFolder> Notebooks(const shell::Globals& globals) {
  auto notebooks = files::LoadBackupNotebooks(CacheFolder(globals));
  if (!notebooks.ok()) throw Stop(kWorkFailed, notebooks.error());
  return std::move(*notebooks);
}

/// A moment in UTC; "" for none.
std::string TimeText(const std::optional<std::chrono::system_clock::time_point>& moment) {
  return moment ? fmt::format("{:%FT%TZ}", std::chrono::floor<std::chrono::seconds>(*moment)) : std::string();
}

std::string Counted(std::uintmax_t count, std::string_view what) {
  return fmt::format("{} {}{}", count, what, count == 1 ? "" : "s");
}

/// Names are bytes; JSON holds characters.
std::string DumpJson(const nlohmann::json& json) {
  return json.dump(2, ' ', false, nlohmann::json::error_handler_t::replace) + "\n";
}

int List(const Call& call, bool json) {
  WatchInterrupts();
  const shell::Globals globals = shell::OpenGlobals(call.root, platform::SystemClock());
  const platform::SystemFileDates dates;
  nlohmann::json rows = nlohmann::json::array();
  std::string lines;
  for (const files::MAFolder& notebook : Notebooks(globals)) {
    const files::NotebookFacts facts = files::MeasureNotebook(notebook.path, dates, WasInterrupted);
    if (WasInterrupted()) return kWorkFailed;
    rows.push_back({{"name", notebook.name},
                    {"path", notebook.path.string()},
                    {"sections", facts.sections},
                    {"bytes", facts.bytes},
                    {"changed", facts.changed ? nlohmann::json(TimeText(facts.changed)) : nlohmann::json()},
                    {"unreadable", facts.unreadable}});
    lines += fmt::format("{}\t{}\t{}\t{}\n", Printable(notebook.name), Counted(facts.sections, "section"),
                         Counted(facts.bytes, "byte"), TimeText(facts.changed));
  }
  if (lines.empty() && !json) PrintError("OneNote keeps no notebooks on this computer");
  WriteOutput("", json ? DumpJson(rows) : lines);
  return kDone;
}

/// Checks the notebooks of these names, or all when there are none.
void Check(std::vector<files::MAFolder>& notebooks, const std::vector<std::string>& names) {
  if (names.empty()) return;
  for (files::MAFolder& notebook : notebooks) notebook.checked = false;
  std::string unknown;
  for (const std::string& name : names) {
    const auto found = std::ranges::find(notebooks, name, &files::MAFolder::name);
    if (found == notebooks.end()) {
      unknown += fmt::format("{}\"{}\"", unknown.empty() ? "" : ", ", Printable(name));
    } else {
      found->checked = true;
    }
  }
  if (!unknown.empty())
    throw Stop(kWrongCall, fmt::format("there is no local notebook {}; see `quill package list`", unknown));
}

struct MakeOptions {
  fs::path target;
  std::vector<std::string> names;
};

/// Prints the packages that were made; tells what went wrong.
int PrintPackages(const Call& call, const std::vector<files::PackageOutcome>& outcomes) {
  bool isWhole = !WasInterrupted();
  std::string made;
  for (const files::PackageOutcome& outcome : outcomes) {
    isWhole = isWhole && outcome.end == files::PackageEnd::Packed;
    if (outcome.end == files::PackageEnd::Packed || outcome.end == files::PackageEnd::Incomplete)
      made += outcome.package.string() + "\n";
  }
  WriteOutput("", made);
  if (isWhole) return kDone;
  const std::string message = shell::PackagesMessage(call.strings, outcomes);
  PrintError(message.empty() ? "stopped; nothing was packed" : message);
  return kWorkFailed;
}

int Make(const Call& call, const MakeOptions& options) {
  WatchInterrupts();
  std::error_code error;
  if (!fs::is_directory(options.target, error))
    throw Stop(kWrongCall, "--to: there is no folder " + options.target.string());
  const shell::Globals globals = shell::InitGlobals(call.root, platform::SystemClock());
  std::vector<files::MAFolder> notebooks = Notebooks(globals);
  Check(notebooks, options.names);
  platform::PosixProcessRunner runner;
  const platform::SystemFileDates dates;
  const auto outcomes = [&] {
    TerminalProgress progress("packing");
    return files::PackageNotebooks(notebooks, options.target, {runner, dates, globals.folders.TmpFolder},
                                   [&](double fraction, std::string_view detail) {
                                     progress.Set(fraction, detail);
                                     return !WasInterrupted();
                                   });
  }();
  if (!outcomes.ok()) throw Stop(kWorkFailed, outcomes.error());
  return PrintPackages(call, *outcomes);
}

void RequireFile(const fs::path& file) {
  std::error_code error;
  if (!fs::is_regular_file(file, error))
    throw Stop(kWrongCall, fmt::format("{}: there is no such file", Printable(file.string())));
}

/// Unpacks with a line of progress; the interrupt is Cancel.
template <class Unpack>
files::UnpackOutcome Watched(const fs::path& package, Unpack unpack) {
  platform::PosixProcessRunner runner;
  TerminalProgress progress("unpacking");
  const std::string name = package.filename().string();
  return unpack(files::UnpackTools{runner, [&] {
                                     progress.Set(-1, name);
                                     return WasInterrupted();
                                   }});
}

files::UnpackOutcome UnpackCabinet(const fs::path& package, const fs::path& target) {
  return Watched(package, [&](const files::UnpackTools& tools) {
    files::ProcessorReader processor;
    return files::UnpackOnepkg(package, target, files::ExtractorPrograms(processor, tools.runner), tools);
  });
}

/// Prints where the files are now, and on standard error what is to be known of them.
int PrintUnpacked(const Call& call, const files::UnpackOutcome& outcome, const fs::path& target) {
  using files::UnpackEnd;
  if (!files::HasRestored(outcome)) {
    const std::string message = shell::RestoreMessage(call.strings, outcome);
    const bool isFolder = outcome.end == UnpackEnd::NoFolder;
    PrintError(message.empty() ? "stopped; nothing was kept"
               : isFolder      ? message + " " + outcome.reason
                               : message);
    return kWorkFailed;
  }
  WriteOutput("", target.string() + "\n");
  const std::string notes = shell::UnpackNotes(call.strings, outcome);
  if (!notes.empty()) PrintError(notes);
  return outcome.end == UnpackEnd::Unpacked ? kDone : kWorkFailed;
}

int PrintSection(const Call& call, const files::SectionRestore& restore) {
  if (restore.end == files::SectionRestoreEnd::NoFolder)
    throw Stop(kWorkFailed, "Create restore folder error! " + restore.reason);
  if (restore.end == files::SectionRestoreEnd::NotCopied)
    throw Stop(kWorkFailed, std::string(call.strings.Text("errRestoreFailure")) + " " + restore.reason);
  WriteOutput("", restore.file.string() + "\n");
  return kDone;
}

struct RestoreOptions {
  fs::path file;
  fs::path into;
  bool a4 = false;
};

int RestoreSection(const Call& call, const RestoreOptions& options, const fs::path& cache) {
  if (!files::IsMacSupportedOneFile(options.file))
    throw Stop(kWorkFailed, "Mac OneNote doesn't support this .one file!");
  return PrintSection(call, files::RestoreSectionFile(options.file, cache));
}

int Restore(const Call& call, const RestoreOptions& options) {
  WatchInterrupts();
  if (options.a4 == !options.file.empty()) throw Stop(kWrongCall, "give either a FILE or --a4");
  const shell::Globals globals = shell::OpenGlobals(call.root, platform::SystemClock());
  if (options.a4) {
    const fs::path cache = CacheFolder(globals, options.into);
    return PrintSection(call, files::RestoreSectionBytes("a4.one", files::A4Section(), cache));
  }
  RequireFile(options.file);
  const std::string kind = options.file.extension().string();
  if (kind != ".quillpkg" && kind != ".onepkg" && kind != ".one")
    throw Stop(kWrongCall, Printable(options.file.string()) + ": give a .quillpkg, .onepkg or .one file");
  const fs::path cache = CacheFolder(globals, options.into);
  if (kind == ".one") return RestoreSection(call, options, cache);
  const fs::path target = cache / options.file.filename();
  if (kind == ".onepkg") return PrintUnpacked(call, UnpackCabinet(options.file, target), target);
  const auto unzip = [&](const files::UnpackTools& tools) {
    return files::UnpackQuillpkg(options.file, target, tools);
  };
  return PrintUnpacked(call, Watched(options.file, unzip), target);
}

int Extract(const Call& call, const fs::path& package, const fs::path& target) {
  WatchInterrupts();
  RequireFile(package);
  return PrintUnpacked(call, UnpackCabinet(package, target), target);
}

void AddMake(CLI::App& package, Call& call) {
  auto options = std::make_shared<MakeOptions>();
  CLI::App* make = package.add_subcommand("make", "Pack local notebooks, each into a .quillpkg file");
  make->add_option("--to", options->target, "The folder that receives the packages")
      ->required()
      ->type_name("DIR");
  make->add_option("names", options->names, "Names from `quill package list`; none: all")->type_name("NAME");
  make->callback([&call, options] { call.status = Make(call, *options); });
}

void AddRestore(CLI::App& app, Call& call) {
  auto options = std::make_shared<RestoreOptions>();
  CLI::App* restore = app.add_subcommand(
      "restore", "Put a package (.quillpkg, .onepkg) or a section (.one) into OneNote's local notebooks");
  restore->add_option("file", options->file, "What to restore")->type_name("FILE");
  restore->add_flag("--a4", options->a4, "A blank section with A4 pages instead of a file");
  restore->add_option("--into", options->into, "This folder instead of that of OneNote's local notebooks")
      ->type_name("DIR");
  restore->callback([&call, options] { call.status = Restore(call, *options); });
}

}  // namespace

void AddPackage(CLI::App& app, Call& call) {
  CLI::App* package = app.add_subcommand("package", "List and pack OneNote's local notebooks");
  package->require_subcommand(1);
  auto json = std::make_shared<bool>(false);
  CLI::App* list =
      package->add_subcommand("list", "The local notebooks and what a package of each would hold");
  list->add_flag("--json", *json, "As JSON");
  list->callback([&call, json] { call.status = List(call, *json); });
  AddMake(*package, call);
  AddRestore(app, call);

  auto paths = std::make_shared<std::pair<fs::path, fs::path>>();
  CLI::App* extract =
      app.add_subcommand("extract", "Extract a .onepkg file into a folder, without restoring it");
  extract->add_option("file", paths->first, "The package")->required()->type_name("FILE");
  extract->add_option("folder", paths->second, "Where to; it is made when it is not there")
      ->required()
      ->type_name("DIR");
  extract->callback([&call, paths] { call.status = Extract(call, paths->first, paths->second); });
}

}  // namespace quill::cli
