#include "shell/skipped_pictures.h"

#include <algorithm>

namespace quill::shell {
namespace {

constexpr std::size_t kNamedInMessage = 10;

std::string_view ReasonKey(tools::SkipReason reason) {
  switch (reason) {
    case tools::SkipReason::Missing:
      return "strSkipMissing";
    case tools::SkipReason::Unreadable:
      return "strSkipUnreadable";
    case tools::SkipReason::NotAFile:
      return "strSkipNotAFile";
    case tools::SkipReason::NotAPicture:
      return "strSkipNotAPicture";
    case tools::SkipReason::TooLarge:
      return "strSkipTooLarge";
  }
  return "strSkipUnreadable";
}

}  // namespace

std::string SkippedText(const StringTable& strings, const tools::SkippedPath& skipped) {
  return strings.Format("strSkippedPicture",
                        {skipped.path, std::string(strings.Text(ReasonKey(skipped.reason)))});
}

std::string SkippedMessage(const StringTable& strings, std::span<const tools::SkippedPath> skipped) {
  if (skipped.empty()) return {};
  std::string message(strings.Text("msgPicturesSkipped"));
  const std::size_t named = std::min(skipped.size(), kNamedInMessage);
  for (const tools::SkippedPath& one : skipped.first(named))
    message.append("\n").append(SkippedText(strings, one));
  if (named < skipped.size()) {
    message.append("\n").append(strings.Format("strAndMore", {std::to_string(skipped.size() - named)}));
  }
  return message;
}

}  // namespace quill::shell
