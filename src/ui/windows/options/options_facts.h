#pragma once
#include <chrono>
#include <functional>
#include <string>
#include <vector>

#include "shell/settings.h"
#include "ui/hot_key_center.h"

namespace quill::ui {

/// What the options window shows, as it was at one moment.
struct OptionsFacts {
  shell::Settings settings;
  bool exportLog = false;               ///< the page log is written in this run
  bool hasTargetWindowPattern = false;  ///< OneNote's window is found by `TargetWindowPattern` here
  std::vector<HotKeyState> hotKeys;     ///< what became of the keys in use; may lag behind the setting
  bool hotKeysPossible = true;          ///< this system lets programs take keys
  std::function<std::chrono::system_clock::time_point()> now = std::chrono::system_clock::now;
};

/// What the options window asks for. All are called on the GUI thread and return at once; one that is empty
/// is not called.
struct OptionsHandlers {
  /// Called on the GUI thread with an empty text, or with why the change could not be made, in the user's
  /// language. Exactly once, before or after the return of `change`; the window may be closed by then.
  using Done = std::function<void(const std::string& problem)>;

  /// Sets and saves the setting `key` of the settings table, as `SetSettingText` reads it.
  std::function<void(const std::string& key, const std::string& text, Done done)> change;
  std::function<void(bool on)> setExportLog;
  /// Runs an action of the command table as a click in the menu does.
  std::function<void(const std::string& action)> runAction;
  /// Tells the problem of a change that came when the window was closed already.
  std::function<void(const std::string& problem)> tell;
};

}  // namespace quill::ui
