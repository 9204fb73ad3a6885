#include "content/first_link.h"

#include "content/entities.h"
#include "content/strip_tags.h"
#include "content/text_between.h"
#include "content/unicode_text.h"

namespace quill::content {

FirstLink GetFirstLink(std::string_view html) {
  const std::string decoded = DecodeHtmlEntities(html);
  const std::string_view link = TextBetween(decoded, "<a", "</a");
  std::string_view target = TextBetween(link, "href=\"", "\"");
  if (target.empty()) target = TextBetween(link, "href='", "'");
  return {PercentUnescape(target), StripTags(TextBetween(link, ">", ""))};
}

}  // namespace quill::content
