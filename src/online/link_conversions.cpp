#include "online/link_conversions.h"

#include <fmt/format.h>

#include <cstdint>

#include "content/find_text.h"
#include "content/text_between.h"
#include "content/unicode_text.h"

namespace quill::online {
namespace {

using content::TextBetween;

bool HasPartInBraces(std::string_view id) {
  const std::size_t open = id.find('{');
  return open != std::string_view::npos && id.find('}', open) != std::string_view::npos;
}

std::string PutInBraces(std::string link, std::string_view key) {
  const std::string id(TextBetween(link, key, "&"));
  if (id.empty() || HasPartInBraces(id)) return link;
  return content::ReplaceAll(link, fmt::format("{}{}&", key, id), fmt::format("{}{{{}}}&", key, id));
}

}  // namespace

std::string ConvertJsonClientUrl2OldClientUrl(std::string_view link) {
  return PutInBraces(PutInBraces(std::string(link), "&section-id="), "&page-id=");
}

std::string ConvertOnlineHtmlObjId2ClientUrlObjId(std::string_view id) {
  const std::int64_t number = content::LeadingInteger(TextBetween(id, "}{", "}"));
  return fmt::format("{{{}}}&{:02X}", TextBetween(id, "{", "}"), static_cast<std::uint32_t>(number));
}

}  // namespace quill::online
