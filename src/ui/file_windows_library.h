#pragma once
#include <functional>
#include <string>

namespace quill::shell {
class StringTable;
struct CommandContext;
struct Folders;
}  // namespace quill::shell

namespace quill::ui {

class WindowFactory;

/// What the windows of favourites and templates have the program do.
struct LibraryHooks {
  using Job = std::function<void(shell::CommandContext& context)>;
  /// Runs a command of this name, or tells that another one runs; `done` is called on the GUI thread in
  /// either case.
  std::function<void(const std::string& name, Job job, std::function<void()> done)> run;
};

/// Adds the windows of favourites and templates. `strings` and `folders` must outlive the factory. GUI
/// thread.
void AddLibraryWindows(WindowFactory& windows, const shell::StringTable& strings,
                       const shell::Folders& folders, const LibraryHooks& hooks);

}  // namespace quill::ui
