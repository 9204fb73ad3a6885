#pragma once
#include <filesystem>
#include <string>

namespace quill::shell {

/// The roots that every folder of the program lies under: the system's own, or a test's.
struct FolderRoots {
  std::filesystem::path userLibrary;    ///< ~/Library; on Linux the XDG data folder
  std::filesystem::path localLibrary;   ///< /Library
  std::filesystem::path userDocuments;  ///< ~/Documents
  std::filesystem::path applications;   ///< /Applications
  std::filesystem::path home;           ///< ~
  /// False where the system has no local domain of this kind (Linux): it is then used only when somebody
  /// has made its Application Support folder.
  bool makeLocalDomain = true;
};

/// The roots of this machine, or those below `root` when it is not empty: `root`/Library (user domain),
/// `root`/local/Library (local domain), `root`/Documents, `root`/Applications, `root`/home.
FolderRoots FindFolderRoots(const std::filesystem::path& root);

/// The folders and files of the program. Paths only: nothing here touches the disk.
struct Folders {
  std::filesystem::path SupportFolder;
  std::filesystem::path TmpFolder;
  std::filesystem::path TemplateFolder;
  std::filesystem::path BackupFolder;
  std::filesystem::path ImagesFolder;
  std::filesystem::path SettingsFile;
  std::filesystem::path FavPagesFile;
  std::filesystem::path FavSectionsFile;
  std::filesystem::path UpdateInfoFile;
  std::filesystem::path DocumentsFolder;
  std::filesystem::path PagesNumHistoryFile;
  FolderRoots roots;
  bool usesLocalDomain = true;  ///< false when the local domain could not be written and the user's is used
  std::string localDomainProblem;  ///< why not, in words, when `usesLocalDomain` is false
};

/// The layout below the given Application Support and Documents folders.
Folders LayOutFolders(const FolderRoots& roots, bool useLocalDomain);

/// Chooses the domain (the local one if its support folder can be written or made by this user alone, else
/// the user's) and creates the six folders with mode 0700, intermediate ones with the system's default. A
/// folder that cannot be made is left out without an error: the first write to it tells. Temporary files
/// that a killed process left in the support folder an hour ago or earlier are removed.
Folders CreateFolders(const FolderRoots& roots);

/// The folders that `CreateFolders` would choose, without touching the disk.
Folders FindFolders(const FolderRoots& roots);

}  // namespace quill::shell
