#include "files/update/update_check.h"

#include <fmt/format.h>

#include <algorithm>

#include "base/atomic_file.h"
#include "content/unicode_text.h"

namespace quill::files {
namespace {

constexpr int kOk = 200;

Failure<std::string> DownloadProblem(std::string_view reason) {
  return Failure{fmt::format("下载文件出错：{}", reason)};
}

bool IsThisMachine(std::string_view address) {
  for (const std::string_view start : {"http://127.0.0.1", "http://localhost", "http://[::1]"}) {
    if (!address.starts_with(start)) continue;
    const std::string_view rest = address.substr(start.size());
    return rest.empty() || rest.front() == ':' || rest.front() == '/';
  }
  return false;
}

}  // namespace

bool IsUpdateAddress(std::string_view address) {
  return address.starts_with("https://") || IsThisMachine(address);
}

platform::HttpRequest UpdateInfoRequest(const std::string& address) {
  platform::HttpRequest request;
  request.url = address;
  request.bodyLimit = kUpdateInfoLimit;
  return request;
}

Status<> UpdateInfoDownloaded(const Result<platform::HttpResponse, platform::HttpFailure>& answer,
                              const std::filesystem::path& file) {
  if (!answer.ok()) {
    const std::string& detail = answer.error().detail;
    return DownloadProblem(detail.empty() ? platform::HttpProblemKey(answer.error().problem) : detail);
  }
  if (answer->status != kOk) return DownloadProblem(fmt::format("HTTP {}", answer->status));
  if (VersionInUpdateInfo(answer->body).empty()) return DownloadProblem("not a version");
  const Status<> written = WriteFileAtomically(file, answer->body);
  if (!written.ok()) return Failure{fmt::format("移动文件失败：{}", written.error())};
  return Done();
}

std::string_view VersionInUpdateInfo(std::string_view text) {
  constexpr std::ptrdiff_t kMostDots = 3;
  if (text.size() > kUpdateInfoLimit) return {};
  const std::string_view version = content::TrimWhite(text);
  const auto isEmptyPart = [&] {
    return version.starts_with('.') || version.ends_with('.') || version.find("..") != std::string_view::npos;
  };
  if (version.find_first_not_of("0123456789.") != std::string_view::npos || isEmptyPart()) return {};
  return std::ranges::count(version, '.') > kMostDots ? std::string_view() : version;
}

std::string ReadUpdateInfo(const std::filesystem::path& file) {
  const Result<std::string> text = ReadFile(file, kUpdateInfoLimit);
  return text.ok() ? std::string(VersionInUpdateInfo(*text)) : std::string();
}

bool IsNewerVersion(const content::VersionParts& version, const content::VersionParts& than) {
  return version > than;
}

bool IsWorthAnnouncing(std::string_view version, std::string_view announced, std::string_view running) {
  return !version.empty() && version != announced &&
         IsNewerVersion(content::SplitVersion(version), content::SplitVersion(running));
}

}  // namespace quill::files
