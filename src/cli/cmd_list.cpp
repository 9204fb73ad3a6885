#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <memory>
#include <nlohmann/json.hpp>

#include "cli/commands.h"
#include "cli/console.h"
#include "shell/command_table.h"

namespace quill::cli {
namespace {

std::vector<std::string> NeedNames(shell::Needs needs) {
  std::vector<std::string> names;
  if (Has(needs, shell::Needs::OneNote)) names.emplace_back("onenote");
  if (Has(needs, shell::Needs::Selection)) names.emplace_back("selection");
  if (Has(needs, shell::Needs::PageLink)) names.emplace_back("page-link");
  if (Has(needs, shell::Needs::SignIn | shell::Needs::SignedIn)) names.emplace_back("sign-in");
  return names;
}

nlohmann::json Describe(const shell::CommandRow& row, const shell::StringTable& strings) {
  nlohmann::json object = {{"action", row.action},
                           {"title", strings.Text(row.titleKey)},
                           {"number", row.number == 0 ? nlohmann::json() : nlohmann::json(row.number)},
                           {"needs", NeedNames(row.needs)}};
  if (row.hotKey != 0) object["hotKey"] = fmt::format("Control+Option+Shift+{}", row.hotKey);
  return object;
}

void PrintTable(const Call& call) {
  std::string text;
  for (const shell::CommandRow& row : shell::CommandTable()) {
    text += fmt::format("{:>5}  {:<42} {}\n", row.number == 0 ? "" : std::to_string(row.number), row.action,
                        call.strings.Text(row.titleKey));
  }
  WriteOutput("", text);
}

}  // namespace

void AddList(CLI::App& app, Call& call) {
  auto json = std::make_shared<bool>(false);
  CLI::App* list = app.add_subcommand("list", "Every action: number, name, title");
  list->add_flag("--json", *json, "One JSON object");
  list->callback([&call, json] {
    if (!*json) return PrintTable(call);
    nlohmann::json actions = nlohmann::json::array();
    for (const shell::CommandRow& row : shell::CommandTable()) actions.push_back(Describe(row, call.strings));
    WriteOutput("", nlohmann::json{{"actions", actions}}.dump(2) + "\n");
  });
}

}  // namespace quill::cli
