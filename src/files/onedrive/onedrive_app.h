#pragma once
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "files/onedrive/cloud_link.h"

namespace quill::files {

/// A local copy of a file that is attached to a page.
struct MAOneDriveFile {
  std::string OneDriveName;          ///< the account, such as "Personal" or "Business1"
  std::string OneNoteUploadsFolder;  ///< the folder in the library's root that holds it
  std::string FileName;              ///< the attachment's name
  std::string FullName;              ///< where it is

  bool operator==(const MAOneDriveFile&) const = default;
};

/// A library that the OneDrive client keeps in step with a local folder.
struct MAOneDriveFolder {
  std::string OneDriveName;
  std::string OneDriveUserFolder;  ///< the library's local root

  bool operator==(const MAOneDriveFolder&) const = default;
};

/// What the OneDrive client's settings tell about this user's synced folders. Everything is read anew with
/// each call and in the order of the file system. A file, folder or library that cannot be read is passed
/// over. Any thread.
class MOneDriveApp {
 public:
  using Note = std::function<void(std::string_view line)>;

  /// `userLibrary` is the user's Library folder; `note` is told what was looked at.
  explicit MOneDriveApp(std::filesystem::path userLibrary, Note note = {});

  /// All local copies of an attachment: in the personal accounts or in those of work and school, as the
  /// link's kind says. Nothing when the client has no settings.
  std::optional<std::vector<MAOneDriveFile>> GetCloudFileAttachments(std::string_view fileName,
                                                                     CloudAttachType kind) const;

  /// Those of one account, whose settings are in this folder.
  std::vector<MAOneDriveFile> GetCloudAttachments_SettingsAccount(std::string_view account,
                                                                  const std::filesystem::path& settings,
                                                                  std::string_view fileName) const;

  /// Those in one library: in each folder of its root whose name begins with "OneNote ". The name as it is
  /// comes first; where it is missing, one that only differs in letter size or composition is taken. An empty
  /// name means those folders themselves; one that reaches outside of them is not found.
  std::vector<MAOneDriveFile> GetCloudAttachments_OneDriveFiles(std::string_view account,
                                                                const std::filesystem::path& library,
                                                                std::string_view fileName) const;

  /// The libraries of all accounts whose local folder is there. Nothing when the client has no settings.
  std::optional<std::vector<MAOneDriveFolder>> GetOneDrivesUserFolders() const;

  /// Those of one account.
  std::vector<MAOneDriveFolder> GetOneDrivesUserFolders_LibraryPath(
      std::string_view account, const std::filesystem::path& settings) const;

 private:
  struct Account {
    std::string name;
    std::filesystem::path settings;
  };
  std::optional<std::vector<Account>> Accounts() const;
  std::vector<std::filesystem::path> Libraries(const std::filesystem::path& settings) const;
  void Tell(std::string_view line) const;

  std::filesystem::path m_userLibrary;
  Note m_note;
};

}  // namespace quill::files
