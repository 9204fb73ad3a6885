#pragma once
#include <chrono>
#include <filesystem>
#include <string>

#include "base/result.h"
#include "platform/clock.h"
#include "shell/folders.h"
#include "shell/script_table.h"
#include "shell/settings.h"

namespace quill::shell {

/// What lives for the whole run: folders, settings, the script table, and head and tail of the last
/// copy. Owned by the command thread; nobody else reads or writes it.
struct Globals {
  Folders folders;
  Settings settings;
  ScriptTable scripts;
  std::string FragmentHead;
  std::string FragmentTail;
  std::chrono::system_clock::time_point oneDayBack;  ///< start-up moment minus 86,400 seconds
  std::string settingsProblem;  ///< why the settings file could not be read, to be told once; else empty
};

/// Computes and creates the folders, then loads the settings. `root` as in `FindFolderRoots`.
Globals InitGlobals(const std::filesystem::path& root, const platform::Clock& clock);

/// As `InitGlobals` without creating a folder: for whoever only looks.
Globals OpenGlobals(const std::filesystem::path& root, const platform::Clock& clock);

/// Reads every key of the settings table, each with its present value as the default. A value
/// that the row does not accept counts as absent. Sets `settingsProblem`.
void LoadSettings(Globals& globals);

/// Merges the table's rows that `SaveSettings` owns into the file as it is now, and writes it.
Status<> SaveSettings(const Globals& globals);

/// Merges one row, whoever owns it, into the file as it is now, and writes it.
Status<> SaveSetting(const Globals& globals, const SettingRow& row);

}  // namespace quill::shell
