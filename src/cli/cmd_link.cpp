#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <memory>
#include <nlohmann/json.hpp>

#include "base/endpoints.h"
#include "cli/commands.h"
#include "cli/console.h"
#include "content/unicode_text.h"
#include "online/client_link.h"

namespace quill::cli {
namespace {

/// Enough of a text to know it again in a message.
std::string_view Beginning(std::string_view text) {
  std::string_view line = text.substr(0, text.find_first_of("\r\n")).substr(0, 80);
  while (!content::IsValidUtf8(line)) line.remove_suffix(1);
  return line;
}

nlohmann::json PartOrNull(const std::string& part) {
  return part.empty() ? nlohmann::json() : nlohmann::json(part);
}

void PrintLink(const std::string& argument) {
  if (!content::IsValidUtf8(argument)) throw Stop(kWrongCall, "the link is not UTF-8");
  // A copied link ends with its line break.
  const std::string_view text = content::TrimWhite(argument);
  const online::PageClientLink parts = online::ReadClientLink(text, FindEndpoints().documentHost);
  if (parts.link.empty()) {
    throw Stop(kWrongCall, fmt::format("\"{}\" is no client link; one begins with {} and a server's name",
                                       Beginning(text), online::kClientLinkStart));
  }
  const nlohmann::json object = {{"link", parts.link},
                                 {"documentHost", PartOrNull(parts.documentHost)},
                                 {"accountId", PartOrNull(parts.accountId)},
                                 {"sectionName", PartOrNull(parts.sectionName)},
                                 {"pageTitle", PartOrNull(parts.pageTitle)},
                                 {"sectionId", PartOrNull(parts.sectionId)},
                                 {"pageId", PartOrNull(parts.pageId)},
                                 {"objectId", PartOrNull(parts.objectId)}};
  WriteOutput("", object.dump(2) + "\n");
}

}  // namespace

void AddLink(CLI::App& app, Call&) {
  auto argument = std::make_shared<std::string>();
  CLI::App* link = app.add_subcommand("link", "Print the parts of a client link as a JSON object");
  link->add_option("link", *argument, "The link; a web line in front of it is skipped")
      ->required()
      ->type_name("LINK");
  link->callback([argument] { PrintLink(*argument); });
}

}  // namespace quill::cli
