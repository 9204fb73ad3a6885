#include "files/onedrive/onedrive_settings.h"

#include <algorithm>

#include "base/atomic_file.h"
#include "content/text_between.h"
#include "content/unicode_text.h"

namespace quill::files {
namespace {

namespace fs = std::filesystem;

constexpr const char* kSettings[] = {
    "Application Support/OneDrive/settings",
    "Containers/com.microsoft.OneDrive-mac/Data/Library/Application Support/OneDrive/settings"};

constexpr std::string_view kOtherFiles[] = {"assertInformation.ini", "ClientPolicy.ini", "global.ini"};

// Descriptions have some kilobytes.
constexpr std::uintmax_t kLargestIni = 16u << 20;

std::string FromUtf16Le(std::string_view bytes) {
  std::u16string units;
  units.reserve(bytes.size() / 2);
  for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) {
    const unsigned low = static_cast<unsigned char>(bytes[i]);
    const unsigned high = static_cast<unsigned char>(bytes[i + 1]);
    units += static_cast<char16_t>(high << 8 | low);
  }
  return content::ToUtf8(units);
}

std::string IniText(std::string_view bytes) {
  constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";
  constexpr std::string_view kUtf16Mark = "\xFF\xFE";
  if (bytes.starts_with(kUtf16Mark)) return FromUtf16Le(bytes.substr(kUtf16Mark.size()));
  // Without a mark: no text in UTF-8 holds a zero byte, and every Latin letter in UTF-16 does.
  if (bytes.find('\0') != std::string_view::npos) return FromUtf16Le(bytes);
  if (bytes.starts_with(kUtf8Mark)) bytes.remove_prefix(kUtf8Mark.size());
  return content::IsValidUtf8(bytes) ? std::string(bytes) : std::string();
}

}  // namespace

std::optional<fs::path> FindOneDriveSettings(const fs::path& userLibrary) {
  for (const char* place : kSettings) {
    std::error_code error;
    if (fs::is_directory(userLibrary / place, error)) return userLibrary / place;
  }
  return std::nullopt;
}

bool IsBusinessAccount(std::string_view accountName) {
  return accountName.starts_with("Business");
}

bool IsLibraryDescription(std::string_view fileName) {
  return fileName.ends_with(".ini") && std::ranges::find(kOtherFiles, fileName) == std::end(kOtherFiles);
}

std::string LibraryPathInIni(std::string_view bytes) {
  const std::string text = IniText(bytes);
  for (std::string_view rest = text; !rest.empty();) {
    const std::string_view line = rest.substr(0, rest.find('\n'));
    if (line.starts_with("library =") || line.starts_with("libraryScope =")) {
      return std::string("/").append(content::TextBetween(line, "\"/", "\""));
    }
    rest.remove_prefix(std::min(line.size() + 1, rest.size()));
  }
  return {};
}

std::string GetAUserOneDriveLibraryPathFromIniFile(const fs::path& file) {
  return LibraryPathInIni(ReadFile(file, kLargestIni).ValueOr(""));
}

}  // namespace quill::files
