#include <fmt/format.h>
#include <sys/wait.h>
#include <unistd.h>

#include <CLI/CLI.hpp>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <nlohmann/json.hpp>

#include "cli/commands.h"
#include "cli/console.h"
#include "platform/clock.h"
#include "platform/posix/link_handler.h"
#include "platform/posix/local_channel.h"
#include "platform/posix/posix_process_runner.h"
#include "platform/posix/program_folder.h"
#include "shell/globals.h"
#include "shell/highlighter.h"
#include "tools/mathjax_folder.h"

namespace quill::cli {
namespace {

namespace fs = std::filesystem;

struct Finding {
  std::string subject;
  bool ok;
  std::string words;
};

Finding LookAtFolders(const shell::Globals& globals) {
  const shell::Folders& folders = globals.folders;
  if (folders.usesLocalDomain) return {"folders", true, "local domain: " + folders.SupportFolder.string()};
  return {"folders", true,
          fmt::format("user domain: {} (the local domain is not used: {})", folders.SupportFolder.string(),
                      folders.localDomainProblem)};
}

Finding LookAtSettings(const shell::Globals& globals) {
  if (!globals.settingsProblem.empty()) return {"settings", false, globals.settingsProblem};
  std::error_code error;
  const bool exists = fs::exists(globals.folders.SettingsFile, error);
  return {"settings", true,
          exists ? globals.folders.SettingsFile.string()
                 : "built-in values; no settings file has been written yet"};
}

Finding LookAtApplication(const Call& call) {
  const Result<fs::path> path = platform::LocalChannelPath(call.root);
  if (!path.ok()) return {"running application", false, path.error()};
  const Result<std::string> answer =
      platform::AskLocalChannel(*path, R"({"ping":true})", std::chrono::seconds(2));
  if (answer.ok()) return {"running application", true, "answers at " + path->string()};
  return {"running application", false, "none; start quillmenu to work on a live selection"};
}

Finding LookAtDisplay() {
  const char* wayland = std::getenv("WAYLAND_DISPLAY");
  const char* x11 = std::getenv("DISPLAY");
  if (x11 != nullptr && *x11 != '\0') {
    return {"display", true,
            fmt::format(
                "X11 {}{}", x11,
                wayland != nullptr ? "; this is a Wayland session, so only X11 windows can be driven" : "")};
  }
  if (wayland != nullptr) {
    return {"display", false, "Wayland without X11: windows open, but no keys can be sent to other programs"};
  }
  return {"display", false, "none; only the command line works here"};
}

/// The first executable of this name on PATH.
std::string FindOnPath(std::string_view name) {
  const char* path = std::getenv("PATH");
  std::string_view rest = path != nullptr ? path : "";
  while (!rest.empty()) {
    const std::size_t end = rest.find(':');
    const std::string file = (fs::path(rest.substr(0, end)) / name).string();
    if (::access(file.c_str(), X_OK) == 0) return file;
    rest.remove_prefix(end == std::string_view::npos ? rest.size() : end + 1);
  }
  return {};
}

Finding LookAtTool(const std::string& name, const std::string& use) {
  const std::string found = FindOnPath(name);
  if (!found.empty()) return {name, true, found};
  return {name, false, fmt::format("not installed; needed for {}", use)};
}

Finding LookAtHighlighter(const shell::Globals& globals) {
  platform::PosixProcessRunner runner;
  const tools::HighlighterPlace place = shell::FindHighlighter(globals.settings, runner);
  const std::string useless = place.isSettingUseless
                                  ? fmt::format("; the setting HighlighterPath names no program: {}",
                                                globals.settings.HighlighterPath)
                                  : "";
  switch (place.origin) {
    case tools::HighlighterOrigin::Setting:
      return {"highlight", true, place.path + ", as the setting HighlighterPath says"};
    case tools::HighlighterOrigin::FixedPath:
      return {"highlight", !place.isSettingUseless, place.path + ", the usual place" + useless};
    case tools::HighlighterOrigin::SearchPath:
      return {"highlight", !place.isSettingUseless, place.path + ", found on PATH" + useless};
    case tools::HighlighterOrigin::NotFound:
      break;
  }
  return {"highlight", false,
          "not installed; needed for coloured source code: install the package \"highlight\", or set "
          "HighlighterPath" +
              useless};
}

Finding LookAtMathJax(const shell::Globals& globals) {
  const std::string& address = globals.settings.MathJaxAddress;
  if (!address.empty()) return {"MathJax", true, address + ", as the setting MathJaxAddress says"};
  const fs::path program = platform::ProgramFolder();
  if (program.empty()) return {"MathJax", false, "not looked for: this system does not tell where quill is"};
  const Result<fs::path> folder = tools::FindMathJax(program);
  if (folder.ok()) return {"MathJax", true, folder->string()};
  return {
      "MathJax", false,
      "not installed; needed for equations: `./dev build` installs it where npm is, or set MathJaxAddress"};
}

Finding LookAtLinks() {
  if (!platform::UsesDesktopEntries()) return {"qvar:// links", true, "opened by the application's bundle"};
  const std::string entry = platform::DesktopEntryForScheme("qvar");
  if (entry == "quillmenu.desktop") return {"qvar:// links", true, entry};
  if (!entry.empty()) {
    return {
        "qvar:// links", false,
        fmt::format("opened by {}; `xdg-mime default quillmenu.desktop x-scheme-handler/qvar` changes that",
                    entry)};
  }
  return {"qvar:// links", false,
          "nobody opens them; `cmake --install` puts quillmenu.desktop where the desktop looks for it"};
}

std::vector<Finding> Examine(const Call& call) {
  const shell::Globals globals = shell::OpenGlobals(call.root, platform::SystemClock());
  return {LookAtFolders(globals),
          LookAtSettings(globals),
          LookAtDisplay(),
          LookAtApplication(call),
          LookAtLinks(),
          LookAtHighlighter(globals),
          LookAtMathJax(globals),
          LookAtTool("espeak-ng", "the pronunciation of words that no dictionary has"),
          LookAtTool("zip", "notebook packages"),
          LookAtTool("unzip", "notebook packages"),
          LookAtTool("cabextract", "opening .onepkg files")};
}

void Print(const std::vector<Finding>& findings, bool json) {
  nlohmann::json list = nlohmann::json::array();
  std::string text;
  for (const Finding& finding : findings) {
    list.push_back({{"subject", finding.subject}, {"ok", finding.ok}, {"words", finding.words}});
    text += fmt::format("{} {:<20} {}\n", finding.ok ? "ok" : "--", finding.subject, finding.words);
  }
  WriteOutput("", json ? nlohmann::json{{"findings", list}}.dump(2) + "\n" : text);
}

}  // namespace

void AddDoctor(CLI::App& app, Call& call) {
  auto json = std::make_shared<bool>(false);
  CLI::App* doctor =
      app.add_subcommand("doctor", "What works on this machine, what does not, and what to do about it");
  doctor->add_flag("--json", *json, "One JSON object");
  doctor->callback([&call, json] { Print(Examine(call), *json); });
}

}  // namespace quill::cli
