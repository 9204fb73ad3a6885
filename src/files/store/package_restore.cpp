#include "files/store/package_restore.h"

#include <fmt/format.h>
#include <stdlib.h>

#include <cerrno>
#include <cstring>
#include <fstream>
#include <utility>

#include "files/folder_listing.h"
#include "files/store/folder_work.h"
#include "files/store/outward_links.h"
#include "files/store/tool_run.h"

namespace quill::files {
namespace {

namespace fs = std::filesystem;
using platform::ProcessEnd;
using platform::ProcessResult;

/// A new folder inside another, gone with everything in it when this object goes.
class InnerFolder {
 public:
  explicit InnerFolder(const fs::path& parent) {
    std::string name = (parent / ".unpacking-XXXXXX").string();
    if (::mkdtemp(name.data()) != nullptr) {
      m_path = name;
    } else {
      m_problem = fmt::format("{}: {}", parent.string(), std::strerror(errno));
    }
  }
  ~InnerFolder() {
    std::error_code error;
    if (!m_path.empty()) fs::remove_all(m_path, error);
  }
  InnerFolder(const InnerFolder&) = delete;
  InnerFolder& operator=(const InnerFolder&) = delete;

  const fs::path& path() const { return m_path; }
  const std::string& problem() const { return m_problem; }

 private:
  fs::path m_path;
  std::string m_problem;
};

/// Why a package cannot be read; empty when it can.
std::string ReadProblem(const fs::path& package) {
  std::error_code error;
  if (!fs::exists(package, error)) return error ? error.message() : std::strerror(ENOENT);
  if (!fs::is_regular_file(package, error)) return "not a file";
  errno = 0;
  const std::ifstream stream(package, std::ios::binary);
  return stream.good() ? std::string() : std::strerror(errno != 0 ? errno : EIO);
}

std::size_t CountFiles(const fs::path& folder) {
  std::size_t count = 0;
  std::error_code error;
  for (fs::recursive_directory_iterator entry(folder, error), end; !error && entry != end;
       entry.increment(error)) {
    std::error_code vanished;
    if (entry->is_symlink(vanished) || !entry->is_directory(vanished)) ++count;
  }
  return count;
}

bool IsRealFolder(const fs::path& path) {
  std::error_code error;
  return fs::symlink_status(path, error).type() == fs::file_type::directory;
}

/// Moves what is in one folder into another of the same file system. What is there stays, folders are merged.
/// Adds up how many files stayed behind; fails with the first that could not be moved.
Status<> MoveInto(const fs::path& from, const fs::path& to, std::size_t& kept) {
  const auto entries = ListFolder(from);
  if (!entries.ok()) return Failure{entries.error()};
  for (const FolderEntry& entry : *entries) {
    const fs::path old = from / entry.name;
    const fs::path place = to / entry.name;
    std::error_code error;
    if (IsRealFolder(old) && IsRealFolder(place)) {
      if (Status<> moved = MoveInto(old, place, kept); !moved.ok()) return moved;
    } else if (fs::exists(fs::symlink_status(place, error))) {
      kept += IsRealFolder(old) ? CountFiles(old) : 1;
    } else {
      fs::rename(old, place, error);
      if (error) return Failure{fmt::format("{}: {}", place.string(), error.message())};
    }
  }
  return Done();
}

/// Packages as their unpacking program wants them.
struct Unpacker {
  std::vector<std::string> programs;
  int harmlessStatus = 0;  ///< a second exit status that is no failure
  std::function<std::vector<std::string>(const fs::path& target)> arguments;
};

/// Names the first thing that went wrong.
UnpackOutcome Ended(UnpackEnd end, std::string reason = {}) {
  UnpackOutcome outcome;
  outcome.end = end;
  outcome.reason = std::move(reason);
  return outcome;
}

/// What the program's end means before its files are looked at; `Unpacked` when they are to be.
UnpackOutcome Judge(const ProcessResult& result, const Unpacker& unpacker, bool isDiskFull) {
  if (isDiskFull) return Ended(UnpackEnd::DiskFull);
  if (result.end == ProcessEnd::Cancelled) return Ended(UnpackEnd::Cancelled);
  if (result.end == ProcessEnd::NotFound) return Ended(UnpackEnd::NoProgram, unpacker.programs.back());
  if (result.end == ProcessEnd::NotStarted) return Ended(UnpackEnd::NoProgram, result.reason);
  const bool isClean =
      result.end == ProcessEnd::Exited && (result.status == 0 || result.status == unpacker.harmlessStatus);
  return isClean ? Ended(UnpackEnd::Unpacked) : Ended(UnpackEnd::Partly, ToolProblem(result));
}

/// Unpacks into a folder of its own inside the target and then moves everything into its place: so what was
/// cancelled leaves nothing, and no link that was there before can be written through.
UnpackOutcome UnpackInside(const fs::path& target, const Unpacker& unpacker, const UnpackTools& tools) {
  const InnerFolder inner(target);
  if (inner.path().empty()) return Ended(UnpackEnd::NoFolder, inner.problem());
  DiskRoom room(inner.path(), tools.freeSpace);
  const auto isStopped = [&] { return room.IsShort() || (tools.isCancelled && tools.isCancelled()); };
  const ProcessResult result =
      RunTool(tools.runner, {unpacker.programs, unpacker.arguments(inner.path()), {}, isStopped});
  UnpackOutcome outcome = Judge(result, unpacker, room.IsShort());
  if (!HasRestored(outcome)) return outcome;
  outcome.removedLinks = RemoveOutwardLinks(inner.path());  // first: it makes every folder readable
  outcome.files = CountFiles(inner.path());
  std::error_code error;
  if (fs::is_empty(inner.path(), error)) return Ended(UnpackEnd::Nothing, outcome.reason);
  const Status<> moved = MoveInto(inner.path(), target, outcome.kept);
  if (!moved.ok()) {
    outcome.end = UnpackEnd::Partly;
    outcome.reason = moved.error();
  }
  return outcome;
}

UnpackOutcome Unpack(const fs::path& package, const fs::path& target, const Unpacker& unpacker,
                     const UnpackTools& tools) {
  const std::string unreadable = ReadProblem(package);
  if (!unreadable.empty())
    return Ended(UnpackEnd::NoFile, fmt::format("{}: {}", package.string(), unreadable));
  std::error_code error;
  const bool wasThere = fs::exists(target, error);
  const Status<> made = CreateFolder(target);
  if (!made.ok()) return Ended(UnpackEnd::NoFolder, made.error());
  UnpackOutcome outcome = UnpackInside(target, unpacker, tools);
  if (!wasThere && !HasRestored(outcome)) fs::remove(target, error);  // only when it is empty
  return outcome;
}

fs::path Whole(const fs::path& path) {
  std::error_code error;
  fs::path whole = fs::absolute(path, error);
  return error ? path : whole;
}

/// The unpacking program takes its archive's name for a pattern: each of a pattern's characters is therefore
/// put into a set of its own. A name with a backslash needs one as well, which only the matching itself
/// undoes.
std::string NameForUnzip(const fs::path& package) {
  const std::string name = package.filename().string();
  if (package.string().find_first_of("[*?\\") == std::string::npos) return package.string();
  std::string pattern;
  for (const char c : name) {
    if (c == '\\') {
      pattern += "[\\\\]";
    } else if (c == '[' || c == '*' || c == '?') {
      pattern.append("[").append(1, c).append("]");
    } else {
      pattern += c;
    }
  }
  return (package.parent_path() / pattern).string();
}

}  // namespace

UnpackOutcome UnpackQuillpkg(const fs::path& package, const fs::path& target, const UnpackTools& tools) {
  constexpr int kWarning = 1;
  const Unpacker unzip{
      {"/usr/bin/unzip", "unzip"}, kWarning, [&](const fs::path& folder) {
        return std::vector<std::string>{NameForUnzip(Whole(package)), "-d", Whole(folder).string()};
      }};
  return Unpack(package, target, unzip, tools);
}

UnpackOutcome UnpackOnepkg(const fs::path& package, const fs::path& target,
                           const std::vector<std::string>& extractors, const UnpackTools& tools) {
  const Unpacker extractor{
      extractors, 0, [&](const fs::path& folder) {
        return std::vector<std::string>{"-d", Whole(folder).string(), Whole(package).string()};
      }};
  return Unpack(package, target, extractor, tools);
}

}  // namespace quill::files
