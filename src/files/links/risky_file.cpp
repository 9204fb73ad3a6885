#include "files/links/risky_file.h"

#include <algorithm>
#include <array>
#include <string>
#include <string_view>

#include "content/unicode_text.h"

namespace quill::files {
namespace {

namespace fs = std::filesystem;

// Sorted, so that they can be searched. Some are folders that macOS opens as programs.
constexpr auto kRisky = std::to_array<std::string_view>(
    {".action",   ".app",      ".appimage", ".applescript", ".appref-ms", ".bash",  ".bat",        ".bundle",
     ".cmd",      ".com",      ".command",  ".cpl",         ".csh",       ".deb",   ".desktop",    ".dmg",
     ".docm",     ".dotm",     ".elf",      ".exe",         ".fileloc",   ".fish",  ".flatpakref", ".gadget",
     ".hta",      ".inetloc",  ".inf",      ".jar",         ".jnlp",      ".js",    ".jse",        ".jsx",
     ".kext",     ".ksh",      ".lnk",      ".lua",         ".mpkg",      ".msi",   ".msp",        ".osx",
     ".php",      ".pif",      ".pkg",      ".pl",          ".potm",      ".ppam",  ".ppsm",       ".pptm",
     ".prefpane", ".ps1",      ".py",       ".pyc",         ".pyw",       ".pyz",   ".rb",         ".reg",
     ".rpm",      ".run",      ".saver",    ".scf",         ".scpt",      ".scptd", ".scr",        ".service",
     ".sh",       ".shortcut", ".snap",     ".tcl",         ".terminal",  ".tool",  ".url",        ".vb",
     ".vbe",      ".vbs",      ".webloc",   ".workflow",    ".ws",        ".wsf",   ".wsh",        ".xlam",
     ".xlsm",     ".xltm",     ".zsh"});
static_assert(std::ranges::is_sorted(kRisky));

// What comes from a stick or a share is often marked executable, whatever it is; these are opened by what
// they are called and never run.
constexpr auto kDocuments = std::to_array<std::string_view>(
    {".bmp", ".csv",  ".doc", ".docx", ".gif",  ".heic", ".jpeg", ".jpg",  ".key", ".m4a",
     ".md",  ".mov",  ".mp3", ".mp4",  ".odp",  ".ods",  ".odt",  ".one",  ".pdf", ".png",
     ".ppt", ".pptx", ".rtf", ".tif",  ".tiff", ".txt",  ".wav",  ".webp", ".xls", ".xlsx"});
static_assert(std::ranges::is_sorted(kDocuments));

std::string ExtensionOf(const fs::path& file) {
  return content::ToLower(file.extension().string());
}

}  // namespace

bool IsRiskyFile(const fs::path& file) {
  std::error_code error;
  fs::path real = fs::canonical(file, error);
  if (error) real = file;
  for (const fs::path& one : {file, real}) {
    if (std::ranges::binary_search(kRisky, ExtensionOf(one))) return true;
  }
  const fs::file_status status = fs::status(real, error);
  if (fs::is_directory(status)) return false;
  if (!fs::is_regular_file(status)) return true;
  constexpr fs::perms kRun = fs::perms::owner_exec | fs::perms::group_exec | fs::perms::others_exec;
  const bool isMarked = (status.permissions() & kRun) != fs::perms::none;
  return isMarked && !std::ranges::binary_search(kDocuments, ExtensionOf(real));
}

}  // namespace quill::files
