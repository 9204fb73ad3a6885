#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <memory>
#include <nlohmann/json.hpp>

#include "base/version.h"
#include "cli/commands.h"
#include "cli/console.h"
#include "cli/interrupts.h"
#include "files/update/update_check.h"
#include "platform/curl/curl_http.h"
#include "shell/globals.h"

namespace quill::cli {
namespace {

/// Downloads the update information now, and keeps it as the tray program does.
std::string NewestVersion(shell::Globals& globals) {
  const std::string& address = globals.endpoints.update;
  if (address.empty()) throw Stop(kWorkFailed, "no address is set to ask for updates; see QUILL_UPDATE_URL");
  if (!files::IsUpdateAddress(address))
    throw Stop(kWorkFailed, "the address for updates is not https: " + address);
  platform::HttpRequest request = files::UpdateInfoRequest(address);
  request.isCancelled = WasInterrupted;
  platform::CurlHttp http;
  const Status<> taken = files::UpdateInfoDownloaded(http.Send(request), globals.folders.UpdateInfoFile);
  if (!taken.ok()) throw Stop(kWorkFailed, taken.error());
  globals.settings.OneAppUpdate_Last = LocalDay(platform::SystemClock().Now());
  const Status<> saved = shell::SaveSettingRows(globals, {"OneAppUpdate_Last"});
  if (!saved.ok()) throw Stop(kWorkFailed, saved.error());
  return files::ReadUpdateInfo(globals.folders.UpdateInfoFile);
}

void Check(const Call& call, bool json) {
  WatchInterrupts();
  shell::Globals globals = shell::InitGlobals(call.root, platform::SystemClock());
  const std::string newest = NewestVersion(globals);
  // Who asks is told, also of a version that was announced before.
  const bool isNewer = files::IsWorthAnnouncing(newest, "", kVersion);
  const std::string& page = globals.endpoints.product;
  if (json) {
    const nlohmann::json object = {
        {"running", kVersion}, {"newest", newest}, {"isNewer", isNewer}, {"page", page}};
    return WriteOutput("", object.dump(2) + "\n");
  }
  const std::string where = page.empty() ? "" : ", see " + page;
  WriteOutput("", isNewer ? fmt::format("{} is newer than this version, {}{}\n", newest, kVersion, where)
                          : fmt::format("{} is the newest version\n", kVersion));
}

}  // namespace

void AddUpdate(CLI::App& app, Call& call) {
  auto json = std::make_shared<bool>(false);
  CLI::App* update = app.add_subcommand("update", "Newer versions of this program");
  update->require_subcommand(1);
  CLI::App* check = update->add_subcommand("check", "Ask the maker's address for the newest version");
  check->add_flag("--json", *json, "One JSON object");
  check->callback([&call, json] { Check(call, *json); });
}

}  // namespace quill::cli
