#include "content/version_number.h"

#include "content/unicode_text.h"

namespace quill::content {

VersionParts SplitVersion(std::string_view text) {
  VersionParts parts{};
  for (std::size_t i = 0; i < parts.size(); ++i) {
    const std::size_t dot = i + 1 < parts.size() ? text.find('.') : std::string_view::npos;
    parts[i] = LeadingInteger(text.substr(0, dot));
    if (dot == std::string_view::npos) break;
    text.remove_prefix(dot + 1);
  }
  return parts;
}

std::strong_ordering CompareVersions(std::string_view left, std::string_view right) {
  return SplitVersion(left) <=> SplitVersion(right);
}

}  // namespace quill::content
