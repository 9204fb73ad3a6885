#pragma once
#include <chrono>
#include <filesystem>
#include <initializer_list>
#include <string>
#include <string_view>

#include "base/endpoints.h"
#include "base/result.h"
#include "online/session.h"
#include "platform/clock.h"
#include "shell/folders.h"
#include "shell/script_table.h"
#include "shell/settings.h"

namespace quill::shell {

/// Who is signed in at the practice notebook's own service, which has nothing to do with the user's account.
struct PracticeAccount {
  Endpoints endpoints;
  online::Account account;
  online::SessionMemory memory;
};

/// What lives for the whole run: folders, settings, the script table, and head and tail of the last
/// copy. Owned by the command thread; nobody else reads or writes it.
struct Globals {
  Folders folders;
  Settings settings;
  ScriptTable scripts;
  Endpoints endpoints;
  online::SessionMemory onlineMemory;
  PracticeAccount practice;
  bool exportLog = false;  ///< the page log is written; off at start, never saved
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

// The three that write do nothing, successfully, when `folders.SettingsFile` is empty: these settings live in
// memory only.

/// Merges the table's rows that `SaveSettings` owns into the file as it is now, and writes it.
Status<> SaveSettings(const Globals& globals);

/// Sets one setting from a text, as `SetSettingText` reads it, and saves it. On failure the setting is as it
/// was.
Status<> ChangeSetting(Globals& globals, const SettingRow& row, std::string_view text);

/// Merges one row, whoever owns it, into the file as it is now, and writes it.
Status<> SaveSetting(const Globals& globals, const SettingRow& row);

/// As `SaveSetting` for the rows of these keys together.
Status<> SaveSettingRows(const Globals& globals, std::initializer_list<std::string_view> keys);

}  // namespace quill::shell
