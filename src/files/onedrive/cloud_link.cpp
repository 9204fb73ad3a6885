#include "files/onedrive/cloud_link.h"

#include "content/text_between.h"
#include "content/unicode_text.h"

namespace quill::files {
namespace {

/// A source text as a browser shows it in a line. No-break spaces are shown as they are.
std::string AsShown(std::string_view source) {
  constexpr std::string_view kWhite = " \t\n\f\r";
  std::string shown;
  while (!source.empty()) {
    const std::size_t begin = source.find_first_not_of(kWhite);
    if (begin == std::string_view::npos) break;
    source.remove_prefix(begin);
    const std::string_view word = source.substr(0, source.find_first_of(kWhite));
    if (!shown.empty()) shown += ' ';
    shown += word;
    source.remove_prefix(word.size());
  }
  return shown;
}

}  // namespace

CloudAttachType GetCloudAttachType(std::string_view link, std::string_view embedAddress) {
  if (link.starts_with(embedAddress)) return CloudAttachType::PersonalEmbed;
  const std::size_t length = content::ToUtf16(content::TextBetween(link, "/:", ":/")).size();
  return length == 1 || length == 2 ? CloudAttachType::BusinessShort : CloudAttachType::None;
}

std::string CloudFileName(std::string_view link, std::string_view linkText, CloudAttachType kind) {
  switch (kind) {
    case CloudAttachType::PersonalEmbed:
      return std::string(content::TextBetween(link, "&filename=", "&"));
    case CloudAttachType::BusinessShort:
      return AsShown(linkText);
    case CloudAttachType::None:
      break;
  }
  return {};
}

}  // namespace quill::files
