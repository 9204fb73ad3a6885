#include "files/update/copy_link_shortcut.h"

#include <fmt/format.h>

#include "base/atomic_file.h"
#include "files/process_problem.h"

namespace quill::files {
namespace {

namespace fs = std::filesystem;

constexpr const char* kDefaults = "/usr/bin/defaults";
constexpr const char* kDomain = "com.microsoft.onenote.mac";
constexpr const char* kKey = "NSUserKeyEquivalents";

/// The first name that is not taken; nothing when one of them holds this text already.
fs::path FreeName(const fs::path& folder, const std::string& text) {
  const fs::path name(kFormerShortcutsFile);
  fs::path file = folder / name;
  std::error_code error;
  for (int number = 2; fs::exists(file, error); ++number) {
    if (ReadFile(file).ValueOr("") == text) return {};
    file = folder / fmt::format("{} {}{}", name.stem().string(), number, name.extension().string());
  }
  return file;
}

}  // namespace

std::vector<std::string> CopyLinkShortcutCommand(std::string_view title) {
  return {kDefaults, "write", kDomain, kKey, fmt::format("{{ \"{}\" = \"@^p\"; }}", title)};
}

Status<> InstallCopyLinkShortcut(platform::ProcessRunner& runner, std::string_view title,
                                 const fs::path& supportFolder) {
  platform::ProcessRequest read;
  read.command = {kDefaults, "read", kDomain, kKey};
  const platform::ProcessResult former = runner.Run(read);
  // It ends with an error when the user has given no keys.
  if (former.ok()) {
    const fs::path file = FreeName(supportFolder, former.output);
    const Status<> saved = file.empty() ? Done() : WriteFileAtomically(file, former.output);
    if (!saved.ok()) return saved;
  } else if (former.end != platform::ProcessEnd::Exited) {
    return Failure{ProcessProblem("defaults", former)};
  }
  platform::ProcessRequest write;
  write.command = CopyLinkShortcutCommand(title);
  const platform::ProcessResult written = runner.Run(write);
  if (!written.ok()) return Failure{ProcessProblem("defaults", written)};
  return Done();
}

}  // namespace quill::files
