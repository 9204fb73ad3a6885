#include "online/client_link.h"

#include "content/find_text.h"
#include "content/text_between.h"
#include "content/unicode_text.h"
#include "online/account_id.h"

namespace quill::online {
namespace {

using content::TextBetween;

std::string_view LastPathComponent(std::string_view path) {
  while (path.ends_with('/')) path.remove_suffix(1);
  const std::size_t slash = path.rfind('/');
  return slash == std::string_view::npos ? path : path.substr(slash + 1);
}

/// The id behind `key`, which ends in "=" and a brace: first looked for with the brace, then without.
std::string_view IdBehind(std::string_view link, std::string_view key) {
  const std::string_view braced = TextBetween(link, key, "}");
  if (!braced.empty()) return braced;
  key.remove_suffix(1);
  return TextBetween(link, key, "&");
}

}  // namespace

bool IsClientLink(std::string_view text) {
  return content::FindText(text, kClientLinkStart) != std::string_view::npos;
}

std::string NormalizeClientLink(std::string_view text) {
  const std::string_view rest = content::TrimBlanks(TextBetween(text, kClientLinkStart, ""));
  if (rest.empty()) return {};
  return std::string(kClientLinkStart).append(rest);
}

std::string_view DocumentHostOfLink(std::string_view link) {
  return TextBetween(link, "https://", "/");
}

std::string SectionNameOfLink(std::string_view link) {
  return content::PercentUnescape(LastPathComponent(TextBetween(link, "https://", ".one")));
}

std::string PageTitleOfLink(std::string_view link) {
  std::string title = content::PercentUnescape(TextBetween(link, "#", "&"));
  if (content::FindText(title, "section-id=") != std::string::npos) return {};
  return title;
}

std::string_view PageIdOfLink(std::string_view link) {
  return IdBehind(link, "page-id={");
}

std::string_view SectionIdOfLink(std::string_view link) {
  return IdBehind(link, "section-id={");
}

std::string_view ObjectIdOfLink(std::string_view link) {
  const std::string_view rest = TextBetween(link, "&object-id=", "");
  return rest.substr(0, content::FindText(rest, "&end"));
}

PageClientLink ReadClientLink(std::string_view text, std::string_view personalHost) {
  PageClientLink parts;
  parts.link = NormalizeClientLink(text);
  parts.documentHost = DocumentHostOfLink(parts.link);
  parts.accountId = AccountIdFromClientUrl(parts.link, personalHost);
  parts.sectionName = SectionNameOfLink(parts.link);
  parts.pageTitle = PageTitleOfLink(parts.link);
  parts.sectionId = SectionIdOfLink(parts.link);
  parts.pageId = PageIdOfLink(parts.link);
  parts.objectId = ObjectIdOfLink(parts.link);
  return parts;
}

}  // namespace quill::online
