#pragma once
#include <algorithm>
#include <chrono>
#include <filesystem>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "files/store/onenote_store.h"
#include "platform/file_dates.h"
#include "platform/posix/posix_process_runner.h"
#include "platform/process_runner.h"
#include "shell/temporary_folder.h"

namespace quill::test {

namespace fs = std::filesystem;

/// Creation dates that a test says, by file name, in seconds; others have none. Counts who is asked for.
class SaidDates final : public platform::FileDates {
 public:
  std::optional<std::chrono::system_clock::time_point> Created(const fs::path& file) const override {
    ++asked[file.string()];
    if (whenAsked) whenAsked(file);
    const auto found = seconds.find(file.filename().string());
    if (found == seconds.end()) return std::nullopt;
    return std::chrono::system_clock::time_point(std::chrono::seconds(found->second));
  }

  std::map<std::string, int> seconds;
  std::function<void(const fs::path&)> whenAsked;
  mutable std::map<std::string, int> asked;
};

/// A runner that answers instead of a program.
class SaidRunner final : public platform::ProcessRunner {
 public:
  explicit SaidRunner(std::function<platform::ProcessResult(const platform::ProcessRequest&)> answer)
      : m_answer(std::move(answer)) {}
  platform::ProcessResult Run(const platform::ProcessRequest& request) override {
    commands.push_back(request.command);
    return m_answer(request);
  }
  std::vector<std::vector<std::string>> commands;

 private:
  std::function<platform::ProcessResult(const platform::ProcessRequest&)> m_answer;
};

/// OneNote's local store as it lies below a Library folder, a folder for temporary files, and one for
/// packages.
struct StoreWorld {
  StoreWorld() {
    for (const fs::path& made : {cache, temporary, packages}) fs::create_directories(made);
  }

  /// One version of a section: `Version("Work", "A", "x")` is "Work/A.one (x).one".
  fs::path Version(const fs::path& notebook, const std::string& section, const std::string& version,
                   std::string_view bytes = "section") const {
    return Put(cache / notebook / (section + ".one (" + version + ").one"), bytes);
  }
  fs::path Put(const fs::path& file, std::string_view bytes) const {
    return folder.Write(fs::relative(file, folder.path()), bytes);
  }

  /// The paths of everything below a folder, relative to it, sorted; links with " -> " and where they lead.
  static std::vector<std::string> Tree(const fs::path& top) {
    std::vector<std::string> paths;
    for (const auto& entry : fs::recursive_directory_iterator(top)) {
      std::string path = entry.path().lexically_relative(top).string();
      if (entry.is_symlink()) path += " -> " + fs::read_symlink(entry.path()).string();
      if (entry.is_symlink() || !entry.is_directory()) paths.push_back(std::move(path));
    }
    std::sort(paths.begin(), paths.end());
    return paths;
  }

  /// Runs a real program in a folder; its standard output.
  static std::string Tool(const fs::path& where, std::vector<std::string> command) {
    platform::ProcessRequest request;
    request.command = std::move(command);
    request.folder = where;
    return platform::PosixProcessRunner().Run(request).output;
  }

  TemporaryFolder folder;
  fs::path library = folder.path() / "Library";
  fs::path cache = library / files::kOneNoteVersionFolder / "Backup";
  fs::path temporary = folder.path() / "Tmp";
  fs::path packages = folder.path() / "packages";
  platform::PosixProcessRunner runner;
};

}  // namespace quill::test
