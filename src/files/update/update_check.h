#pragma once
#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>

#include "base/result.h"
#include "content/version_number.h"
#include "platform/http.h"

namespace quill::files {

/// The largest update information: one version and some white space.
inline constexpr std::size_t kUpdateInfoLimit = 64;

/// Whether the program asks this address for its version, or opens it as its product page: an https address,
/// or an http one of this machine.
bool IsUpdateAddress(std::string_view address);

/// The request for the update information.
platform::HttpRequest UpdateInfoRequest(const std::string& address);

/// Takes the answer: the version goes into `file`. The failure is a line for the log.
Status<> UpdateInfoDownloaded(const Result<platform::HttpResponse, platform::HttpFailure>& answer,
                              const std::filesystem::path& file);

/// The version in the text of an update information: one to four whole numbers with dots between, without the
/// white space around. Empty for any other text, and for one that is too long.
std::string_view VersionInUpdateInfo(std::string_view text);

/// The version in the file; empty when there is none.
std::string ReadUpdateInfo(const std::filesystem::path& file);

/// Whether the first version comes after the second one.
bool IsNewerVersion(const content::VersionParts& version, const content::VersionParts& than);

/// Whether the user is to be told of a version: it is not empty, not the one announced last, and newer than
/// the running one.
bool IsWorthAnnouncing(std::string_view version, std::string_view announced, std::string_view running);

}  // namespace quill::files
