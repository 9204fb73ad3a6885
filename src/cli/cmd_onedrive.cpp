#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <memory>
#include <nlohmann/json.hpp>

#include "cli/commands.h"
#include "cli/console.h"
#include "content/entities.h"
#include "content/unicode_text.h"
#include "files/onedrive/onedrive_app.h"
#include "platform/clock.h"
#include "shell/globals.h"
#include "shell/onedrive_actions.h"

namespace quill::cli {
namespace {

using files::CloudAttachType;
using nlohmann::json;

std::string Dump(const json& list) {
  return list.dump(2, ' ', false, json::error_handler_t::replace) + "\n";
}

template <class T>
const T& OrStop(const std::optional<T>& found) {
  if (!found) throw Stop(kWorkFailed, std::string(shell::kNoOneDriveFolder));
  return *found;
}

/// Calls `work` with what is known about the OneDrive client of this user.
template <class Work>
int WithOneDrive(const Call& call, Work work) {
  const shell::Globals globals = shell::OpenGlobals(call.root, platform::SystemClock());
  shell::Explain explain = MakeExplain(call);
  const files::MOneDriveApp oneDrive(globals.folders.roots.userLibrary,
                                     [&explain](std::string_view line) { explain.Note(line); });
  return work(oneDrive, globals);
}

int PrintFolders(const Call& call, bool asJson) {
  return WithOneDrive(call, [&](const files::MOneDriveApp& oneDrive, const shell::Globals&) {
    const auto found = oneDrive.GetOneDrivesUserFolders();
    json list = json::array();
    std::string lines;
    for (const files::MAOneDriveFolder& folder : OrStop(found)) {
      list.push_back({{"account", folder.OneDriveName}, {"folder", folder.OneDriveUserFolder}});
      lines += fmt::format("{}\t{}\n", folder.OneDriveName, folder.OneDriveUserFolder);
    }
    WriteOutput("", asJson ? Dump(list) : lines);
    if (list.empty()) PrintError("no account of the OneDrive client has a folder here");
    return list.empty() ? kWorkFailed : kDone;
  });
}

struct FindOptions {
  std::string link;
  std::string text;
  bool json = false;
};

int PrintCopies(const Call& call, const FindOptions& options) {
  return WithOneDrive(call, [&](const files::MOneDriveApp& oneDrive, const shell::Globals& globals) {
    if (!content::IsValidUtf8(options.link) || !content::IsValidUtf8(options.text))
      throw Stop(kWrongCall, "link and text are to be UTF-8");
    // As a link in a selection is read.
    const std::string link =
        content::DecodeHtmlEntities(content::PercentUnescape(content::DecodeHtmlEntities(options.link)));
    const CloudAttachType kind = files::GetCloudAttachType(link, globals.endpoints.embed);
    if (kind == CloudAttachType::None) throw Stop(kWrongCall, "this is no link of a cloud attachment");
    if (kind == CloudAttachType::BusinessShort && options.text.empty())
      throw Stop(kWrongCall, "this link does not name its file: give the link's text with --text TEXT");
    const std::string name = files::CloudFileName(link, options.text, kind);
    const auto found = oneDrive.GetCloudFileAttachments(name, kind);
    json list = json::array();
    std::string lines;
    for (const files::MAOneDriveFile& file : OrStop(found)) {
      list.push_back({{"account", file.OneDriveName},
                      {"uploadsFolder", file.OneNoteUploadsFolder},
                      {"fileName", file.FileName},
                      {"file", file.FullName}});
      lines += file.FullName + "\n";
    }
    WriteOutput("", options.json ? Dump(list) : lines);
    if (list.empty()) PrintError(fmt::format("no local copy of \"{}\" was found", name));
    return list.empty() ? kWorkFailed : kDone;
  });
}

}  // namespace

void AddOneDrive(CLI::App& app, Call& call) {
  CLI::App* oneDrive = app.add_subcommand("onedrive", "What the OneDrive client has on this machine");
  oneDrive->require_subcommand(1);

  auto foldersAsJson = std::make_shared<bool>(false);
  CLI::App* folders = oneDrive->add_subcommand("folders", "Print each synced library: account and folder");
  folders->add_flag("--json", *foldersAsJson, "One JSON array");
  folders->callback([&call, foldersAsJson] { call.status = PrintFolders(call, *foldersAsJson); });

  auto options = std::make_shared<FindOptions>();
  CLI::App* find = oneDrive->add_subcommand("find", "Print the local copies of a cloud attachment");
  find->add_option("link", options->link, "The attachment's link")->required()->type_name("LINK");
  find->add_option("--text", options->text, "The link's text, which is the file's name at work or school")
      ->type_name("TEXT");
  find->add_flag("--json", options->json, "One JSON array");
  find->callback([&call, options] { call.status = PrintCopies(call, *options); });
}

}  // namespace quill::cli
