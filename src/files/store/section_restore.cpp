#include "files/store/section_restore.h"

#include <fmt/format.h>
#include <stdlib.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

#include "base/atomic_file.h"
#include "files/store/folder_work.h"
#include "files/store/notebook_list.h"

namespace quill::files {
namespace {

namespace fs = std::filesystem;

/// Copies beside the target and renames the copy.
Status<> ReplaceByCopy(const fs::path& from, const fs::path& to) {
  std::string copy = (to.parent_path() / ".restoring-XXXXXX").string();
  const int file = ::mkstemp(copy.data());
  if (file < 0) return Failure{fmt::format("{}: {}", to.parent_path().string(), std::strerror(errno))};
  ::close(file);
  std::error_code error;
  fs::copy_file(from, copy, fs::copy_options::overwrite_existing, error);
  const bool isRead = !error;
  if (isRead) fs::rename(copy, to, error);
  if (!error) return Done();
  ::unlink(copy.c_str());
  return Failure{fmt::format("{}: {}", (isRead ? to : from).string(), error.message())};
}

template <class Write>
SectionRestore Restore(std::string_view name, const fs::path& cacheFolder, Write write) {
  SectionRestore restore;
  const fs::path folder = cacheFolder / kRestoreSectionsFolder;
  restore.file = folder / name;
  const Status<> made = CreateFolder(folder);
  if (!made.ok()) {
    restore.end = SectionRestoreEnd::NoFolder;
    restore.reason = made.error();
    return restore;
  }
  const Status<> written = write(restore.file);
  if (written.ok()) return restore;
  restore.end = SectionRestoreEnd::NotCopied;
  restore.reason = written.error();
  return restore;
}

}  // namespace

SectionRestore RestoreSectionFile(const fs::path& section, const fs::path& cacheFolder) {
  return Restore(section.filename().string(), cacheFolder,
                 [&](const fs::path& file) { return ReplaceByCopy(section, file); });
}

SectionRestore RestoreSectionBytes(std::string_view name, std::string_view bytes,
                                   const fs::path& cacheFolder) {
  return Restore(name, cacheFolder, [&](const fs::path& file) { return WriteFileAtomically(file, bytes); });
}

}  // namespace quill::files
