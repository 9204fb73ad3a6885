#include "shell/picture_commands.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <string>
#include <string_view>

#include "base/atomic_file.h"
#include "content/data_uri.h"
#include "content/element_lookup.h"
#include "content/unicode_text.h"
#include "shell/transform_table.h"
#include "shell/window_requests.h"

namespace quill::shell {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kFileScheme = "file://";
constexpr std::string_view kLocalHost = "localhost/";
constexpr std::string_view kDataPicture = "data:image/";
constexpr std::string_view kSavedStem = "QuillMenu";
constexpr std::string_view kPasteboardFile = "quill.tif";

// The extensions under which a system keeps pictures, and never programs.
constexpr std::array<std::string_view, 20> kPictureExtensions = {
    "apng", "avif", "bmp", "dib", "emf",  "gif", "heic", "heif", "ico",  "jfif",
    "jpe",  "jpeg", "jpg", "jxl", "pict", "png", "svg",  "tif",  "tiff", "webp"};

/// A picture file, or the message that says why there is none.
using Picture = Result<fs::path>;

Failure<std::string> Problem(const TransformContext& context, std::string_view key,
                             const std::string& argument = {}) {
  return Failure{context.services.strings.Format(key, {argument})};
}

bool IsPictureExtension(std::string_view extension) {
  const std::string lower = content::ToLower(extension);
  return std::find(kPictureExtensions.begin(), kPictureExtensions.end(), lower) != kPictureExtensions.end();
}

/// The path behind a file source. A picture's name never holds a NUL; the system would stop reading there.
Picture LocalPicture(const TransformContext& context, std::string_view source) {
  source.remove_prefix(kFileScheme.size());
  if (source.starts_with(kLocalHost)) source.remove_prefix(kLocalHost.size() - 1);
  if (source.starts_with('/')) source.remove_prefix(1);
  const std::string name = content::PercentUnescape(source);
  const fs::path file = fs::path("/") / name;
  std::error_code error;
  if (name.find('\0') != std::string::npos || !fs::is_regular_file(file, error)) {
    return Problem(context, "errPictureGone", file.string());
  }
  return file;
}

/// Saves the picture inside a source. The media type becomes a part of a file's name.
Picture SavedPicture(const TransformContext& context, std::string_view source) {
  const std::string_view rest = source.substr(kDataPicture.size());
  if (!IsPictureExtension(rest.substr(0, rest.find_first_of(";,+"))))
    return Problem(context, "errSelectImage");
  const std::string folder = context.globals.folders.DocumentsFolder.string();
  const std::string file = content::SaveDataUri(source, folder, kSavedStem);
  if (file.empty()) return Problem(context, "errPictureSave", folder);
  return fs::path(file);
}

Picture FirstPicture(const TransformContext& context) {
  const pugi::xml_node image = content::FindElementNamed(context.document->Root(), "img");
  const std::string_view source = image.attribute("src").value();
  if (source.starts_with(kFileScheme)) return LocalPicture(context, source);
  if (source.starts_with(kDataPicture)) return SavedPicture(context, source);
  return Problem(context, "errSelectImage");
}

/// The picture that the last copy left on the pasteboard.
Picture CopiedPicture(const TransformContext& context) {
  const auto png = context.services.pasteboard.Read(platform::Flavour::Png);
  if (!png.ok()) {
    switch (png.error()) {
      case platform::ReadProblem::OwnerSilent:
        return Problem(context, "errClipboardSilent");
      case platform::ReadProblem::TooLarge:
        return Problem(context, "errClipboardTooLarge");
      case platform::ReadProblem::Absent:
        return Problem(context, "errSelectImage");
    }
  }
  if (png->empty()) return Problem(context, "errSelectImage");
  const fs::path file = context.globals.folders.TmpFolder / kPasteboardFile;
  const Status<> written = WriteFileAtomically(file, *png);
  if (!written.ok()) return Failure{written.error()};
  return file;
}

void Show(TransformContext& context, const Picture& picture) {
  if (!picture.ok()) return context.bridge.ShowMessage(picture.error());
  context.services.ui.ShowWindow(ImageRequest{*picture});
}

void Open(TransformContext& context, const Picture& picture) {
  if (!picture.ok()) return context.bridge.ShowMessage(picture.error());
  const StringTable& strings = context.services.strings;
  std::string extension = picture->extension().string();
  if (!extension.empty()) extension.erase(0, 1);
  if (!IsPictureExtension(extension)) {
    return context.bridge.ShowMessage(strings.Format("errPictureName", {picture->string()}));
  }
  const Status<> opened = context.services.workspace.OpenFile(*picture);
  if (!opened.ok())
    context.bridge.ShowMessage(strings.Format("errPictureOpen", {picture->string(), opened.error()}));
}

}  // namespace

std::int64_t ImageCrop(TransformContext& context) {
  Show(context, FirstPicture(context));
  return 0;
}

std::int64_t OpenPicture(TransformContext& context) {
  Open(context, FirstPicture(context));
  return 0;
}

void ImageCropViaImageFormat(TransformContext& context) {
  if (context.bridge.CopyFailed()) return context.bridge.ShowCopyProblem();
  Show(context, CopiedPicture(context));
}

void OpenPictureViaImageFormat(TransformContext& context) {
  if (context.bridge.CopyFailed()) return context.bridge.ShowCopyProblem();
  Open(context, CopiedPicture(context));
}

}  // namespace quill::shell
