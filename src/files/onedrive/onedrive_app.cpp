#include "files/onedrive/onedrive_app.h"

#include <fmt/format.h>

#include "files/file_names.h"
#include "files/folder_listing.h"
#include "files/onedrive/onedrive_settings.h"
#include "files/onedrive/similar_name.h"

namespace quill::files {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kUploads = "OneNote ";

bool IsThere(const fs::path& path) {
  std::error_code error;
  return fs::exists(path, error);
}

std::vector<FolderEntry> EntriesOf(const fs::path& folder) {
  return ListFolder(folder).ValueOr({});
}

/// Where this name is in a folder; an empty name is the folder itself.
std::optional<fs::path> FindIn(const fs::path& folder, std::string_view name) {
  if (name.empty()) return folder;
  if (!IsFileName(name)) return std::nullopt;
  if (IsThere(folder / name)) return folder / name;
  const std::optional<std::string> similar = FindSimilarName(EntriesOf(folder), name);
  if (!similar || !IsThere(folder / *similar)) return std::nullopt;
  return folder / *similar;
}

}  // namespace

MOneDriveApp::MOneDriveApp(fs::path userLibrary, Note note)
    : m_userLibrary(std::move(userLibrary)), m_note(std::move(note)) {}

void MOneDriveApp::Tell(std::string_view line) const {
  if (m_note) m_note(line);
}

std::optional<std::vector<MOneDriveApp::Account>> MOneDriveApp::Accounts() const {
  const std::optional<fs::path> settings = FindOneDriveSettings(m_userLibrary);
  if (!settings) {
    Tell("onedrive: the client has no settings here");
    return std::nullopt;
  }
  const Result<std::vector<FolderEntry>> entries = ListFolder(*settings);
  if (!entries.ok()) Tell("onedrive: " + entries.error());
  std::vector<Account> accounts;
  for (const FolderEntry& entry : entries.ValueOr({})) {
    if (entry.isFolder) accounts.push_back({entry.name, *settings / entry.name});
  }
  return accounts;
}

std::vector<fs::path> MOneDriveApp::Libraries(const fs::path& settings) const {
  std::vector<fs::path> libraries;
  for (const FolderEntry& entry : EntriesOf(settings)) {
    if (!IsLibraryDescription(entry.name)) continue;
    const std::string library = GetAUserOneDriveLibraryPathFromIniFile(settings / entry.name);
    Tell(fmt::format("onedrive: {} in {} names {}", entry.name, settings.filename().string(),
                     library.empty() ? "no library" : library));
    if (!library.empty()) libraries.emplace_back(library);
  }
  return libraries;
}

std::optional<std::vector<MAOneDriveFile>> MOneDriveApp::GetCloudFileAttachments(std::string_view fileName,
                                                                                 CloudAttachType kind) const {
  const std::optional<std::vector<Account>> accounts = Accounts();
  if (!accounts) return std::nullopt;
  std::vector<MAOneDriveFile> files;
  for (const Account& account : *accounts) {
    const CloudAttachType own =
        IsBusinessAccount(account.name) ? CloudAttachType::BusinessShort : CloudAttachType::PersonalEmbed;
    if (own != kind) continue;
    for (MAOneDriveFile& file :
         GetCloudAttachments_SettingsAccount(account.name, account.settings, fileName)) {
      files.push_back(std::move(file));
    }
  }
  Tell(fmt::format("onedrive: {} copies found", files.size()));
  return files;
}

std::vector<MAOneDriveFile> MOneDriveApp::GetCloudAttachments_SettingsAccount(
    std::string_view account, const fs::path& settings, std::string_view fileName) const {
  std::vector<MAOneDriveFile> files;
  for (const fs::path& library : Libraries(settings)) {
    for (MAOneDriveFile& file : GetCloudAttachments_OneDriveFiles(account, library, fileName)) {
      files.push_back(std::move(file));
    }
  }
  return files;
}

std::vector<MAOneDriveFile> MOneDriveApp::GetCloudAttachments_OneDriveFiles(std::string_view account,
                                                                            const fs::path& library,
                                                                            std::string_view fileName) const {
  std::vector<MAOneDriveFile> files;
  for (const FolderEntry& entry : EntriesOf(library)) {
    if (!entry.isFolder || !entry.name.starts_with(kUploads)) continue;
    const std::optional<fs::path> file = FindIn(library / entry.name, fileName);
    if (file) files.push_back({std::string(account), entry.name, std::string(fileName), file->string()});
  }
  return files;
}

std::optional<std::vector<MAOneDriveFolder>> MOneDriveApp::GetOneDrivesUserFolders() const {
  const std::optional<std::vector<Account>> accounts = Accounts();
  if (!accounts) return std::nullopt;
  std::vector<MAOneDriveFolder> folders;
  for (const Account& account : *accounts) {
    for (MAOneDriveFolder& folder : GetOneDrivesUserFolders_LibraryPath(account.name, account.settings)) {
      folders.push_back(std::move(folder));
    }
  }
  return folders;
}

std::vector<MAOneDriveFolder> MOneDriveApp::GetOneDrivesUserFolders_LibraryPath(
    std::string_view account, const fs::path& settings) const {
  std::vector<MAOneDriveFolder> folders;
  for (const fs::path& library : Libraries(settings)) {
    if (IsThere(library)) folders.push_back({std::string(account), library.string()});
  }
  return folders;
}

}  // namespace quill::files
