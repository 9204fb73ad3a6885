#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <memory>
#include <nlohmann/json.hpp>

#include "cli/commands.h"
#include "cli/console.h"
#include "platform/clock.h"
#include "shell/globals.h"

namespace quill::cli {
namespace {

struct SettingsOptions {
  std::string key;
  std::string value;
  bool json = false;
};

const shell::SettingRow& WantedSetting(const std::string& key) {
  const shell::SettingRow* row = shell::FindSetting(key);
  if (row != nullptr) return *row;
  throw Stop(kWrongCall,
             fmt::format("there is no setting \"{}\"; `quill settings list` shows all", key.substr(0, 80)));
}

/// The value as it may be shown: of a secret only whether it is set.
std::string Shown(const shell::Settings& settings, const shell::SettingRow& row) {
  const std::string text = shell::SettingText(settings, row);
  if (!row.secret) return text;
  return text.empty() ? "(not set)" : "(set)";
}

shell::Globals Load(const Call& call) {
  shell::Globals globals = shell::OpenGlobals(call.root, platform::SystemClock());
  if (!globals.settingsProblem.empty()) PrintError(globals.settingsProblem);
  return globals;
}

void List(const Call& call, bool json) {
  const shell::Globals globals = Load(call);
  nlohmann::json object = nlohmann::json::object();
  std::string text;
  for (const shell::SettingRow& row : shell::SettingTable()) {
    const std::string value = Shown(globals.settings, row);
    object[std::string(row.key)] = value;
    text += fmt::format("{:<30} {:<22} {}\n", row.key, value, row.meaning);
  }
  WriteOutput("", json ? object.dump(2) + "\n" : text);
}

void Set(const Call& call, const SettingsOptions& options) {
  const shell::SettingRow& row = WantedSetting(options.key);
  shell::Globals globals = shell::InitGlobals(call.root, platform::SystemClock());
  const Status<> accepted = shell::SetSettingText(globals.settings, row, options.value);
  if (!accepted.ok()) throw Stop(kWrongCall, fmt::format("{}: {}", row.key, accepted.error()));
  const Status<> saved = shell::SaveSetting(globals, row);
  if (!saved.ok()) throw Stop(kWorkFailed, saved.error());
}

}  // namespace

void AddSettings(CLI::App& app, Call& call) {
  auto options = std::make_shared<SettingsOptions>();
  CLI::App* settings = app.add_subcommand("settings", "Show and change the settings");
  settings->require_subcommand(1);
  CLI::App* list = settings->add_subcommand("list", "All settings with their values");
  list->add_flag("--json", options->json, "One JSON object");
  list->callback([&call, options] { List(call, options->json); });
  CLI::App* get = settings->add_subcommand("get", "Print one setting");
  get->add_option("key", options->key, "Name of the setting")->required()->type_name("KEY");
  get->callback([&call, options] {
    const shell::SettingRow& row = WantedSetting(options->key);
    WriteOutput("", Shown(Load(call).settings, row) + "\n");
  });
  CLI::App* set = settings->add_subcommand("set", "Change one setting");
  set->add_option("key", options->key, "Name of the setting")->required()->type_name("KEY");
  set->add_option("value", options->value, "Its new value")->required()->type_name("VALUE");
  set->callback([&call, options] { Set(call, *options); });
}

}  // namespace quill::cli
