#include "shell/package_actions.h"

#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "files/store/a4_section.h"
#include "files/store/extractor.h"
#include "files/store/notebook_list.h"
#include "files/store/notebook_package.h"
#include "files/store/onenote_store.h"
#include "files/store/package_restore.h"
#include "files/store/section_file.h"
#include "files/store/section_restore.h"
#include "platform/posix/creation_date.h"
#include "shell/command_table.h"
#include "shell/package_messages.h"
#include "shell/package_requests.h"

namespace quill::shell {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kNoFolder = "OneNote folder not found!!";
constexpr std::string_view kFolderNotMade = "Create restore folder error!";

/// What runs programs where nothing can.
class NoPrograms final : public platform::ProcessRunner {
 public:
  platform::ProcessResult Run(const platform::ProcessRequest& request) override {
    platform::ProcessResult result;
    result.end = platform::ProcessEnd::NotFound;
    result.reason = request.command.front() + ": programs cannot be run here";
    return result;
  }
};

/// The programs of this command.
class Programs {
 public:
  explicit Programs(const Services& services) : m_shared(services.engines.processes) {}
  platform::ProcessRunner& runner() {
    if (m_shared) return *m_shared;
    return m_none;
  }

 private:
  std::shared_ptr<platform::ProcessRunner> m_shared;
  NoPrograms m_none;
};

/// This machine's processor does not change while the program runs.
files::ProcessorReader& ThisProcessor() {
  static files::ProcessorReader reader;
  return reader;
}

void Say(CommandContext& context, std::string_view text) {
  if (!text.empty()) context.services.ui.ShowMessage(text);
}

/// A panel of an action; its line that says what to choose is the same in every language.
platform::OpenPanel PanelOf(const CommandContext& context, const CommandRow& row, std::string_view message) {
  platform::OpenPanel panel;
  panel.title = context.services.strings.Text(row.titleKey);
  panel.message = message;
  return panel;
}

std::optional<fs::path> AskOne(CommandContext& context, const platform::OpenPanel& panel) {
  const std::vector<fs::path> chosen = context.services.ui.AskOpenPaths(panel);
  if (chosen.empty()) return std::nullopt;
  return chosen.front();
}

std::optional<fs::path> AskFile(CommandContext& context, const CommandRow& row, std::string_view message,
                                std::string_view extension) {
  platform::OpenPanel panel = PanelOf(context, row, message);
  panel.extensions.emplace_back(extension);
  return AskOne(context, panel);
}

/// Where to restore into: OneNote's cache folder, else what the user chooses. Says so when there is neither.
fs::path RestoreFolder(CommandContext& context, const CommandRow& row) {
  fs::path folder = files::GetOneNoteCacheFolder(OneNoteLibraries(context.globals.folders.roots));
  if (folder.empty()) folder = ChooseBackupFolder(context, row);
  if (folder.empty()) Say(context, kNoFolder);
  return folder;
}

/// Has OneNote show its list of notebooks to open.
void OpenInOneNote(CommandContext& context) {
  const platform::ScriptResult shown =
      context.services.desktop.RunScript(context.globals.scripts.ScriptCommandO);
  if (shown.ok()) return;
  Say(context, context.services.strings.Format(platform::ScriptProblemKey(shown.problem), {shown.detail}));
}

/// Unpacks while the user watches, and can stop it.
template <class Unpack>
files::UnpackOutcome Watched(CommandContext& context, const fs::path& package, Unpack unpack) {
  Programs programs(context.services);
  const std::string name = package.filename().string();
  const std::unique_ptr<platform::Progress> progress =
      context.services.ui.BeginProgress(context.services.strings.Text("strUnpacking"));
  const auto isCancelled = [&] {
    progress->Set(-1, name);
    return progress->Cancelled();
  };
  files::UnpackOutcome outcome = unpack({programs.runner(), isCancelled});
  if (!outcome.reason.empty()) context.services.explain.Note("unpack: " + outcome.reason);
  return outcome;
}

files::UnpackOutcome Extract(CommandContext& context, const fs::path& package, const fs::path& target) {
  return Watched(context, package, [&](const files::UnpackTools& tools) {
    return files::UnpackOnepkg(package, target, files::ExtractorPrograms(ThisProcessor(), tools.runner),
                               tools);
  });
}

files::UnpackOutcome Unzip(CommandContext& context, const fs::path& package, const fs::path& target) {
  return Watched(context, package, [&](const files::UnpackTools& tools) {
    return files::UnpackQuillpkg(package, target, tools);
  });
}

void RestorePackage(CommandContext& context, const CommandRow& row, const fs::path& package,
                    files::UnpackOutcome (*unpack)(CommandContext&, const fs::path&, const fs::path&)) {
  const fs::path folder = RestoreFolder(context, row);
  if (folder.empty()) return;
  const files::UnpackOutcome outcome = unpack(context, package, folder / package.filename());
  Say(context, RestoreMessage(context.services.strings, outcome));
  if (files::HasRestored(outcome)) OpenInOneNote(context);
}

/// Puts a section into the cache folder by this function of that folder.
template <class RestoreInto>
void RestoreSection(CommandContext& context, const CommandRow& row, RestoreInto restoreInto) {
  const fs::path folder = RestoreFolder(context, row);
  if (folder.empty()) return;
  const files::SectionRestore restore = restoreInto(folder);
  if (!restore.reason.empty()) context.services.explain.Note("restore: " + restore.reason);
  const StringTable& strings = context.services.strings;
  switch (restore.end) {
    case files::SectionRestoreEnd::NoFolder:
      return Say(context, kFolderNotMade);
    case files::SectionRestoreEnd::NotCopied:
      return Say(context, std::string(strings.Text("errRestoreFailure")) + "\n" + restore.reason);
    case files::SectionRestoreEnd::Restored:
      Say(context, strings.Text("msgRestoreSuccess"));
      return OpenInOneNote(context);
  }
}

/// Packs while the user watches, and can stop it.
Result<std::vector<files::PackageOutcome>> Pack(CommandContext& context, const PackageChoice& chosen) {
  Programs programs(context.services);
  const platform::SystemFileDates dates;
  const std::unique_ptr<platform::Progress> progress =
      context.services.ui.BeginProgress(context.services.strings.Text("strPackingNotebooks"));
  return files::PackageNotebooks(chosen.notebooks, chosen.target,
                                 {programs.runner(), dates, context.globals.folders.TmpFolder},
                                 [&](double fraction, std::string_view detail) {
                                   progress->Set(fraction, detail);
                                   return !progress->Cancelled();
                                 });
}

}  // namespace

std::vector<fs::path> OneNoteLibraries(const FolderRoots& roots) {
  return {roots.userLibrary, roots.localLibrary};
}

fs::path ChooseBackupFolder(CommandContext& context, const CommandRow& row) {
  const fs::path version = files::GetOneNoteVersionFolder(OneNoteLibraries(context.globals.folders.roots));
  if (version.empty()) return {};
  platform::OpenPanel panel = PanelOf(context, row, "Choose Backup folder with your language");
  panel.kind = platform::OpenKind::Folders;
  panel.folder = version;
  return AskOne(context, panel).value_or(fs::path());
}

void PackageNotebooksClick(CommandContext& context, const CommandRow&) {
  const fs::path folder = files::GetOneNoteCacheFolder(OneNoteLibraries(context.globals.folders.roots));
  if (folder.empty()) return Say(context, "List Notebooks failure. OneNote folder not found!!");
  auto notebooks = files::LoadBackupNotebooks(folder);
  if (!notebooks.ok())
    return Say(context, context.services.strings.Format("errPackageList", {notebooks.error()}));
  const auto chosen = platform::RunDialog(context.services.ui, PackageRequest{std::move(*notebooks)});
  if (!chosen) return;
  const auto outcomes = Pack(context, *chosen);
  if (!outcomes.ok())
    return Say(context, context.services.strings.Format("errPackageTemporary", {outcomes.error()}));
  Say(context, PackagesMessage(context.services.strings, *outcomes));
}

void RestoreQuillpkgFile(CommandContext& context, const CommandRow& row) {
  const auto package = AskFile(context, row, "Choose a .quillpkg file", "quillpkg");
  if (package) RestorePackage(context, row, *package, Unzip);
}

void RestoreOnepkgFile(CommandContext& context, const CommandRow& row) {
  const auto package = AskFile(context, row, "Choose a .onepkg file", "onepkg");
  if (package) RestorePackage(context, row, *package, Extract);
}

void ExtractOnepkgFile(CommandContext& context, const CommandRow& row) {
  const auto package = AskFile(context, row, "Choose a .onepkg file", "onepkg");
  if (!package) return;
  platform::OpenPanel panel = PanelOf(context, row, "Choose a folder for extract files");
  panel.kind = platform::OpenKind::Folders;
  const auto target = AskOne(context, panel);
  if (!target) return;
  const files::UnpackOutcome outcome = Extract(context, *package, *target);
  const StringTable& strings = context.services.strings;
  if (!files::HasRestored(outcome)) return Say(context, RestoreMessage(strings, outcome));
  Say(context, UnpackNotes(strings, outcome));
  const Status<> opened = context.services.workspace.OpenFile(*target);
  if (!opened.ok()) Say(context, strings.Format("errOpen", {opened.error()}));
}

void RestoreA4OneNoteTemplate(CommandContext& context, const CommandRow& row) {
  RestoreSection(context, row, [](const fs::path& folder) {
    return files::RestoreSectionBytes("a4.one", files::A4Section(), folder);
  });
}

void RestoreOneSectionFile(CommandContext& context, const CommandRow& row) {
  const auto section = AskFile(context, row, "Choose a .one file", "one");
  if (!section) return;
  if (!files::IsMacSupportedOneFile(*section))
    return Say(context, "Mac OneNote doesn't support this .one file!");
  RestoreSection(context, row,
                 [&](const fs::path& folder) { return files::RestoreSectionFile(*section, folder); });
}

}  // namespace quill::shell
