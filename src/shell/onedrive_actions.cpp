#include "shell/onedrive_actions.h"

#include <fmt/format.h>

#include "content/entities.h"
#include "content/first_link.h"
#include "files/onedrive/onedrive_app.h"
#include "shell/link_requests.h"
#include "shell/open_linked_file.h"
#include "shell/transform_table.h"

namespace quill::shell {
namespace {

using files::CloudAttachType;
using files::MAOneDriveFile;

constexpr std::string_view kNotFound =
    "Can not find the file in 'OneNote Uploads' folder in sync folder of OneDrive.exe. Please login "
    "OneDrive.exe "
    "with your OneNote account and sync the files completely before using this feature!";

/// The copy to open; nothing, and the user told why, when there is none, or when they want none of several.
std::optional<MAOneDriveFile> WantedCopy(TransformContext& context, std::string_view name,
                                         CloudAttachType kind) {
  const files::MOneDriveApp oneDrive(
      context.globals.folders.roots.userLibrary,
      [&explain = context.services.explain](std::string_view line) { explain.Note(line); });
  const std::optional<std::vector<MAOneDriveFile>> copies = oneDrive.GetCloudFileAttachments(name, kind);
  if (!copies || copies->empty()) {
    context.bridge.ShowMessage(copies ? kNotFound : kNoOneDriveFolder);
    return std::nullopt;
  }
  if (copies->size() == 1) return copies->front();
  const auto chosen = platform::RunDialog(context.services.ui, CloudFilesRequest{*copies});
  if (!chosen || *chosen >= copies->size()) return std::nullopt;
  return copies->at(*chosen);
}

void OpenCloudFileAttachment(TransformContext& context, std::string_view link, std::string_view text,
                             CloudAttachType kind) {
  const std::string name = files::CloudFileName(link, text, kind);
  context.services.explain.Note(
      fmt::format("link of kind {}, a file name of {} bytes", static_cast<int>(kind), name.size()));
  const std::optional<MAOneDriveFile> file = WantedCopy(context, name, kind);
  if (file) OpenLinkedFile(context.services, file->FullName);
}

}  // namespace

std::int64_t OpenCloudFileAttachmentLink(TransformContext& context) {
  const content::FirstLink link = content::GetFirstLink(context.fragment);
  const std::string href = content::DecodeHtmlEntities(link.target);
  const CloudAttachType kind = files::GetCloudAttachType(href, context.globals.endpoints.embed);
  if (kind == CloudAttachType::None) {
    context.bridge.ShowMessage(context.services.strings.Text("errSelectCloudFileAttachmentLink"));
    return 0;
  }
  OpenCloudFileAttachment(context, href, link.text, kind);
  return 1;
}

}  // namespace quill::shell
