#include "files/links/link_fields.h"

#include <fmt/format.h>

#include "content/entities.h"
#include "content/strip_tags.h"
#include "content/text_between.h"
#include "content/unicode_text.h"
#include "files/links/variable_link.h"

namespace quill::files {

LinkFields LoadValue(std::string_view linkHtml) {
  constexpr std::string_view kFileScheme = "file:///";
  std::string_view href = content::TextBetween(linkHtml, "href=\"", "\"");
  if (href.empty()) return {content::StripTags(linkHtml), {}};
  const std::string_view rest = content::TextBetween(linkHtml, href, "");
  const std::string text = content::StripTags(content::TextBetween(rest, ">", "</a"));
  for (const std::string_view scheme : {kVariableScheme, kFileScheme}) {
    if (!href.starts_with(scheme)) continue;
    href.remove_prefix(scheme.size());
    break;
  }
  return {text, content::PercentUnescape(content::DecodeHtmlEntities(href))};
}

std::string VariableLinkHtml(const LinkFields& fields) {
  return fmt::format("{}<a href='{}{}'>{}</a>{}", content::kBuiltHead, kVariableScheme, fields.link,
                     fields.text, content::kBuiltTail);
}

}  // namespace quill::files
