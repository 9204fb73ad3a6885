#include "ui/pictures/file_scenes.h"

#include <QAbstractItemModel>
#include <QAbstractItemView>
#include <chrono>
#include <fstream>

#include "ui/kit/qt_text.h"
#include "ui/pictures/scene_parts.h"
#include "ui/windows/backup/win_backup.h"
#include "ui/windows/cloud_files/win_cloud_file_attachment.h"
#include "ui/windows/open_notebook/win_open_notebook.h"
#include "ui/windows/packages/win_folder.h"
#include "ui/windows/variable_link/win_var_link.h"

namespace quill::ui {
namespace {

namespace fs = std::filesystem;

fs::path Below(const Studio& studio, const fs::path& name) {
  return fs::path(FromQt(studio.folder.path())) / name;
}

Look OpenPackages(Studio& studio, bool areThere) {
  constexpr std::pair<const char*, std::size_t> kNotebooks[] = {
      {"Household", 12}, {"Garden", 3}, {"Caf\xC3\xA9 \xE2\x80\x93 recipes and orders", 41}, {"Work", 7}};
  shell::PackageRequest request;
  for (const auto& [name, sections] : kNotebooks) {
    if (areThere) request.notebooks.push_back({sections != 3, name, name});
  }
  const auto measure = [kNotebooks](const fs::path& notebook, const files::IsCancelled&) {
    files::NotebookFacts facts;
    for (const auto& [name, sections] : kNotebooks) {
      if (notebook == name) facts.sections = sections;
    }
    facts.bytes = facts.sections * 1'234'567;
    const std::chrono::sys_days day =
        std::chrono::year(2026) / 11 / static_cast<unsigned>(1 + facts.sections % 20);
    facts.changed = day + std::chrono::hours(9);
    return facts;
  };
  auto* window = new MWinFolder(
      studio.strings, studio.panels, request, [](const auto&) {}, measure);
  return InFront(window);
}

void WriteBackup(const fs::path& folder, const char* day, int sections) {
  const fs::path notebook = folder / day / "OneNote/15.0/Cache/Household";
  fs::create_directories(notebook);
  for (int i = 0; i < sections; ++i)
    std::ofstream(notebook / ("Section " + std::to_string(i) + ".one")) << std::string(40'000, 'x');
}

Look OpenBackups(Studio& studio, bool areThere) {
  const files::BackupPlaces places{Below(studio, ""), Below(studio, "OneAppBackup"),
                                   Below(studio, "OneNote")};
  if (areThere) {
    WriteBackup(places.backupFolder, "20261121", 9);
    WriteBackup(places.backupFolder, "20261122", 4);
    files::MarkIncomplete(places.backupFolder, "20261122");
  }
  BackupHandlers handlers;
  handlers.places = places;
  handlers.today = [] { return std::chrono::year(2026) / 11 / 22; };
  return InFront(new MWinBackup(studio.strings, handlers));
}

/// The folder is one that every system has: what a link means is only shown when it is there.
Look OpenVariableLink(Studio& studio) {
  shell::VarLinkRequest request;
  request.roots.personal = "/usr/share";
  request.fields = {"How we work", "%ONEDRIVE%/doc"};
  return InFront(new MWinVarLink(studio.strings, studio.panels, request, [](const auto&) {}));
}

Look OpenCopies(Studio& studio) {
  shell::CloudFilesRequest request;
  for (const char* account : {"Personal", "Business1", "Business2"})
    request.files.push_back(
        {account, "OneNote Uploads", "Budget 2026.xlsx",
         std::string("/Users/a/OneDrive - ") + account + "/OneNote Uploads/Budget 2026.xlsx"});
  return InFront(new MWinCloudFileAttachment(studio.strings, request, [](const auto&) {}));
}

Look OpenByLink(Studio& studio) {
  return InFront(new MWinOpenNotebookByLink(studio.strings, {}, [](const auto&) {}));
}

}  // namespace

std::vector<Scene> FileScenes() {
  const auto packages = [](bool areThere) {
    return [areThere](Studio& studio) { return OpenPackages(studio, areThere); };
  };
  const auto backups = [](bool areThere) {
    return [areThere](Studio& studio) { return OpenBackups(studio, areThere); };
  };
  return {
      {QStringLiteral("packages"), packages(true)},        {QStringLiteral("packages-none"), packages(false)},
      {QStringLiteral("backups"), backups(true)},          {QStringLiteral("backups-none"), backups(false)},
      {QStringLiteral("variable-link"), OpenVariableLink}, {QStringLiteral("cloud-files"), OpenCopies},
      {QStringLiteral("open-notebook"), OpenByLink}};
}

}  // namespace quill::ui
