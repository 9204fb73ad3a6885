#include "shell/folders.h"

#include <chrono>

#include "base/atomic_file.h"
#include "base/version.h"
#include "platform/posix/private_folder.h"
#include "platform/posix/standard_folders.h"

namespace quill::shell {
namespace {

namespace fs = std::filesystem;

constexpr const char* kApplicationSupport = "Application Support";
constexpr std::chrono::hours kLeftoverAge(1);  // no save takes as long: nobody is writing it any more

using FolderCheck = Status<> (*)(const fs::path&);

Folders Choose(const FolderRoots& roots, FolderCheck check) {
  const Folders local = LayOutFolders(roots, true);
  Status<> usable = check(local.SupportFolder);
  if (usable.ok()) return local;
  Folders own = LayOutFolders(roots, false);
  own.localDomainProblem = usable.error();
  return own;
}

/// Whether the local domain may be tried at all.
Status<> LocalDomainThere(const FolderRoots& roots) {
  std::error_code error;
  const fs::path support = roots.localLibrary / kApplicationSupport;
  if (roots.makeLocalDomain || fs::is_directory(support, error)) return Done();
  return Failure{support.string() + ": there is no such folder"};
}

Folders ChooseDomain(const FolderRoots& roots, FolderCheck check) {
  const Status<> there = LocalDomainThere(roots);
  if (there.ok()) return Choose(roots, check);
  Folders own = LayOutFolders(roots, false);
  own.localDomainProblem = there.error();
  return own;
}

}  // namespace

FolderRoots FindFolderRoots(const fs::path& root) {
  if (!root.empty()) {
    std::error_code error;
    fs::path whole = fs::absolute(root, error);
    if (error) whole = root;
    return {whole / "Library",   whole / "local" / "Library",
            whole / "Documents", whole / "Applications",
            whole / "home",      true};
  }
  const platform::StandardFolders system = platform::FindStandardFolders();
  return {system.userLibrary,  system.localLibrary, system.documents,
          system.applications, system.home,         system.hasLocalDomain};
}

Folders LayOutFolders(const FolderRoots& roots, bool useLocalDomain) {
  Folders folders;
  const fs::path& library = useLocalDomain ? roots.localLibrary : roots.userLibrary;
  folders.SupportFolder = library / kApplicationSupport / kMakerName / kBundleName;
  folders.TmpFolder = folders.SupportFolder / "Tmp";
  folders.TemplateFolder = folders.SupportFolder / "Template";
  folders.BackupFolder = folders.SupportFolder / "OneAppBackup";
  folders.ImagesFolder = folders.SupportFolder / "Images";
  folders.SettingsFile = folders.SupportFolder / "quillapp.plist";
  folders.FavPagesFile = folders.SupportFolder / "quillfavpages.plist";
  folders.FavSectionsFile = folders.SupportFolder / "quillfavsections.plist";
  folders.UpdateInfoFile = folders.SupportFolder / "updateinfo.txt";
  folders.DocumentsFolder = roots.userDocuments / kBundleName;
  folders.PagesNumHistoryFile = folders.DocumentsFolder / "PagesNumHistory.txt";
  folders.roots = roots;
  folders.usesLocalDomain = useLocalDomain;
  return folders;
}

Folders CreateFolders(const FolderRoots& roots) {
  Folders folders = ChooseDomain(roots, platform::MakePrivateFolder);
  const fs::path* const all[] = {&folders.SupportFolder, &folders.TmpFolder,    &folders.TemplateFolder,
                                 &folders.BackupFolder,  &folders.ImagesFolder, &folders.DocumentsFolder};
  for (const fs::path* folder : all) {
    const Status<> made = platform::MakePrivateFolder(*folder);
    static_cast<void>(made);  // the first write to a folder that is not there says so
  }
  RemoveTemporaryFiles(folders.SupportFolder, kLeftoverAge);
  return folders;
}

Folders FindFolders(const FolderRoots& roots) {
  return ChooseDomain(roots, platform::CanMakePrivateFolder);
}

}  // namespace quill::shell
