#include "shell/link_actions.h"

#include <fmt/format.h>

#include <optional>

#include "content/entities.h"
#include "content/text_between.h"
#include "content/unicode_text.h"
#include "files/links/link_fields.h"
#include "files/links/variable_link.h"
#include "shell/link_requests.h"
#include "shell/onedrive_actions.h"
#include "shell/open_linked_file.h"
#include "shell/transform_table.h"

namespace quill::shell {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kFileScheme = "file:";
constexpr std::string_view kLocalHost = "localhost/";

files::VariableRoots RootsOf(const Globals& globals) {
  const FolderRoots& roots = globals.folders.roots;
  return files::FindVariableRoots(roots.userLibrary, roots.home);
}

bool IsThere(const std::string& path) {
  std::error_code error;
  return path.starts_with('/') && path.find('\0') == std::string::npos && fs::exists(path, error);
}

/// The path behind an address that is no other machine's or service's; nothing in every other address. It is
/// "" when the escapes do not make a text.
std::optional<std::string> LocalPath(std::string_view address) {
  if (content::ToLower(address.substr(0, kFileScheme.size())) == kFileScheme) {
    address.remove_prefix(kFileScheme.size());
    if (address.starts_with("//")) address.remove_prefix(2);
    if (address.starts_with(kLocalHost)) address.remove_prefix(kLocalHost.size() - 1);
  } else if (!address.starts_with('/')) {
    return std::nullopt;
  }
  return content::PercentUnescape(address);
}

/// Opens a local file; what follows a "#" is part of its name, or else a place in it.
void OpenLocalPath(Services& services, const std::string& path) {
  const std::string withoutPlace = path.substr(0, path.rfind('#'));
  const std::string& wanted = !IsThere(path) && IsThere(withoutPlace) ? withoutPlace : path;
  if (IsThere(wanted)) return OpenLinkedFile(services, wanted);
  services.ui.ShowMessage(services.strings.Format("errLinkNotThere", {wanted.substr(0, wanted.find('\0'))}));
}

void AskForLink(TransformContext& context, std::string_view linkHtml) {
  const std::optional<files::LinkFields> given = platform::RunDialog(
      context.services.ui, VarLinkRequest{files::LoadValue(linkHtml), RootsOf(context.globals)});
  if (given) context.bridge.PasteHtml(files::VariableLinkHtml(*given), PasteMode::AtCaret);
}

std::string_view WordsFor(files::LinkState state) {
  switch (state) {
    case files::LinkState::Found:
      return "found";
    case files::LinkState::Missing:
      return "nothing is there";
    case files::LinkState::NoVariable:
      return "it begins with no variable";
    case files::LinkState::NoRoot:
      return "no folder here stands for its variable";
    case files::LinkState::Refused:
      break;
  }
  return "refused, it leads out of its folder";
}

}  // namespace

std::int64_t OpenLocalLink(TransformContext& context) {
  Services& services = context.services;
  const std::string address =
      content::DecodeHtmlEntities(content::TextBetween(context.fragment, "href=\"", "\""));
  if (address.empty()) {
    context.bridge.ShowMessage(services.strings.Text("errSelectLink"));
    return 1;
  }
  const std::optional<std::string> path = LocalPath(address);
  if (address.starts_with(files::kVariableScheme)) {
    OpenVariableLink(services, context.globals, address);
  } else if (path) {
    OpenLocalPath(services, *path);
  } else {
    // Unescaped, an "&" or "#" inside a part of it would begin a new one.
    const Status<> opened = services.workspace.OpenUrl(address);
    if (!opened.ok()) context.bridge.ShowMessage(services.strings.Format("errOpen", {opened.error()}));
  }
  return 1;
}

std::int64_t VarLink(TransformContext& context) {
  AskForLink(context, context.fragment);
  return 0;
}

void VarLinkWithoutSelection(TransformContext& context) {
  if (context.bridge.CopyFailed()) return context.bridge.ShowCopyProblem();
  AskForLink(context, {});
}

void OpenVariableLink(Services& services, const Globals& globals, std::string_view url) {
  const files::VariableRoots roots = RootsOf(globals);
  const files::VariableTarget target = files::FindVariableTarget(url, roots);
  const std::string words = fmt::format("variable link: {}", WordsFor(target.state));
  services.explain.Note(words);
  services.log.Write(words);
  if (target.state == files::LinkState::Found) return OpenLinkedFile(services, target.path);
  // Only a link into OneDrive's folders fails for want of its settings.
  if (target.state == files::LinkState::NoRoot && !roots.hasOneDrive) {
    services.ui.ShowMessage(kNoOneDriveFolder);
  }
}

}  // namespace quill::shell
