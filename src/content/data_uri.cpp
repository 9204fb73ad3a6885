#include "content/data_uri.h"

#include <algorithm>
#include <filesystem>

#include "base/atomic_file.h"
#include "content/base64.h"
#include "content/text_between.h"

namespace quill::content {
namespace {

bool IsSubtypeChar(char c) {
  return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '.' || c == '+' ||
         c == '-';
}

/// Empty when the media type is malformed: the extension becomes a part of a path.
std::string_view ExtensionFor(std::string_view mediaType) {
  if (mediaType == "text/plain") return "txt";
  const std::size_t slash = mediaType.find('/');
  if (slash == std::string_view::npos || slash == 0) return {};
  const std::string_view subtype = mediaType.substr(slash + 1);
  if (!std::all_of(subtype.begin(), subtype.end(), IsSubtypeChar)) return {};
  const std::string_view extension = subtype.substr(0, subtype.find('+'));
  return extension.find_first_not_of('.') == std::string_view::npos ? std::string_view() : extension;
}

bool IsFileName(std::string_view name) {
  return !name.empty() && name != "." && name != ".." && name.find('/') == std::string_view::npos &&
         name.find('\0') == std::string_view::npos;
}

}  // namespace

std::string SaveDataUri(std::string_view uri, const std::string& folder, std::string_view name) {
  const std::string_view extension = ExtensionFor(TextBetween(uri, "data:", ";"));
  const std::string_view payload = TextBetween(uri, "base64,", "");
  if (extension.empty() || payload.empty() || !IsFileName(name)) return {};
  if (payload.find_first_of(" \t\r\n") != std::string_view::npos) return {};
  const auto bytes = DecodeBase64(payload);
  if (!bytes) return {};
  std::string fileName(name);
  std::string suffix(1, '.');
  suffix.append(extension);
  if (!name.ends_with(suffix)) fileName += suffix;
  const std::filesystem::path path = std::filesystem::path(folder) / fileName;
  return WriteFileAtomically(path, *bytes) ? path.string() : std::string();
}

}  // namespace quill::content
