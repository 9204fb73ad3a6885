#include "shell/globals.h"

#include <algorithm>

#include "files/config.h"

namespace quill::shell {
namespace {

void Read(const files::MConfig& config, std::string_view key, bool& value) {
  value = config.ReadBool(key, value);
}
void Read(const files::MConfig& config, std::string_view key, std::int64_t& value) {
  value = config.ReadInt(key, value);
}
void Read(const files::MConfig& config, std::string_view key, std::string& value) {
  value = config.ReadString(key, value);
}
void Read(const files::MConfig& config, std::string_view key, StoredDate& value) {
  value = config.ReadDate(key, value);
}

void Write(files::MConfig& config, std::string_view key, bool value) {
  config.WriteBool(key, value);
}
void Write(files::MConfig& config, std::string_view key, std::int64_t value) {
  config.WriteInt(key, value);
}
void Write(files::MConfig& config, std::string_view key, const std::string& value) {
  config.WriteString(key, value);
}
void Write(files::MConfig& config, std::string_view key, const StoredDate& value) {
  config.WriteDate(key, value);
}

void ReadRow(const files::MConfig& config, const SettingRow& row, Settings& settings) {
  std::visit(
      [&](auto field) {
        auto value = settings.*field;
        Read(config, row.key, settings.*field);
        if (row.accepts != nullptr && !row.accepts(SettingText(settings, row)))
          settings.*field = std::move(value);
      },
      row.field);
}

void WriteRow(files::MConfig& config, const SettingRow& row, const Settings& settings) {
  std::visit([&](auto field) { Write(config, row.key, settings.*field); }, row.field);
}

/// Merges the rows that are wanted into the file as it is now.
template <class Wanted>
Status<> SaveRows(const Globals& globals, Wanted wanted) {
  if (globals.folders.SettingsFile.empty()) return Done();
  files::MConfig config(globals.folders.SettingsFile);
  for (const SettingRow& row : SettingTable()) {
    if (wanted(row)) WriteRow(config, row, globals.settings);
  }
  return config.Save();
}

Globals GlobalsIn(Folders folders, const platform::Clock& clock) {
  const std::chrono::system_clock::time_point now = clock.Now();
  Globals globals;
  globals.folders = std::move(folders);
  globals.settings = DefaultSettings(now);
  globals.scripts = BuiltInScripts();
  globals.endpoints = FindEndpoints();
  globals.oneDayBack = now - std::chrono::seconds(86'400);
  LoadSettings(globals);
  return globals;
}

}  // namespace

Globals InitGlobals(const std::filesystem::path& root, const platform::Clock& clock) {
  return GlobalsIn(CreateFolders(FindFolderRoots(root)), clock);
}

Globals OpenGlobals(const std::filesystem::path& root, const platform::Clock& clock) {
  return GlobalsIn(FindFolders(FindFolderRoots(root)), clock);
}

void LoadSettings(Globals& globals) {
  const files::MConfig config(globals.folders.SettingsFile);
  globals.settingsProblem = config.Problem();
  for (const SettingRow& row : SettingTable()) ReadRow(config, row, globals.settings);
}

Status<> SaveSettings(const Globals& globals) {
  return SaveRows(globals, [](const SettingRow& row) { return row.writer == SettingWriter::SaveSettings; });
}

Status<> SaveSetting(const Globals& globals, const SettingRow& row) {
  return SaveRows(globals, [&](const SettingRow& one) { return one.key == row.key; });
}

Status<> SaveSettingRows(const Globals& globals, std::initializer_list<std::string_view> keys) {
  return SaveRows(globals, [&](const SettingRow& row) {
    return std::find(keys.begin(), keys.end(), row.key) != keys.end();
  });
}

Status<> ChangeSetting(Globals& globals, const SettingRow& row, std::string_view text) {
  const Settings before = globals.settings;
  Status<> changed = SetSettingText(globals.settings, row, text);
  if (changed.ok()) changed = SaveSetting(globals, row);
  if (!changed.ok()) globals.settings = before;
  return changed;
}

}  // namespace quill::shell
