#include "platform/posix/xdg_workspace.h"

#include <string>
#include <system_error>

#include "platform/posix/detached_process.h"

namespace quill::platform {
namespace {

namespace fs = std::filesystem;

bool IsPlainInUrl(unsigned char c) {
  // No comma: it separates the items of a list given to dbus-send.
  constexpr std::string_view kMarks = "-._~/!$&'()+";
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') ||
         kMarks.find(static_cast<char>(c)) != std::string_view::npos;
}

Status<> MissingFile(const fs::path& file) {
  return Failure{file.string() + " does not exist"};
}

}  // namespace

std::string FileUrl(const fs::path& file) {
  constexpr std::string_view kHex = "0123456789ABCDEF";
  std::string url = "file://";
  for (const char c : file.string()) {
    const auto byte = static_cast<unsigned char>(c);
    if (IsPlainInUrl(byte)) {
      url += c;
    } else {
      url.append(1, '%').append(1, kHex[byte >> 4]).append(1, kHex[byte & 15]);
    }
  }
  return url;
}

Status<> XdgWorkspace::OpenUrl(std::string_view url) {
  // A text without a scheme would be taken for a file's name, or for an option.
  const std::size_t colon = url.find(':');
  if (colon == 0 || colon == std::string_view::npos || url.find('/') < colon || url.front() == '-') {
    return Failure{std::string(url) + " is no address"};
  }
  return StartDetached({"xdg-open", std::string(url)});
}

Status<> XdgWorkspace::OpenFile(const fs::path& file) {
  std::error_code error;
  if (!fs::exists(file, error)) return MissingFile(file);
  return StartDetached({"xdg-open", fs::absolute(file, error).string()});
}

Status<> XdgWorkspace::Reveal(const fs::path& file) {
  std::error_code error;
  if (!fs::exists(file, error)) return MissingFile(file);
  const fs::path whole = fs::absolute(file, error);
  if (fs::is_directory(whole, error)) return StartDetached({"xdg-open", whole.string()});
  const Status<> shown =
      RunToEnd({"dbus-send", "--session", "--print-reply", "--reply-timeout=3000",
                "--dest=org.freedesktop.FileManager1", "/org/freedesktop/FileManager1",
                "org.freedesktop.FileManager1.ShowItems", "array:string:" + FileUrl(whole), "string:"});
  if (shown.ok()) return shown;
  return StartDetached({"xdg-open", whole.parent_path().string()});
}

}  // namespace quill::platform
