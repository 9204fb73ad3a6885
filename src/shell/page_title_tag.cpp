#include "shell/page_title_tag.h"

#include <fmt/format.h>

#include "content/unicode_text.h"

namespace quill::shell {
namespace {

std::string WithoutEvery(std::string_view text, std::string_view sign) {
  std::string result;
  for (std::size_t at = text.find(sign); at != std::string_view::npos; at = text.find(sign)) {
    result.append(text.substr(0, at));
    text.remove_prefix(at + sign.size());
  }
  return result.append(text);
}

}  // namespace

std::string ExchangePageTitleTag(std::string_view title, std::int64_t index) {
  if (!IsPageTitleTag(index)) return {};
  std::string text(content::TrimBlanks(title));
  for (std::size_t i = 1; i < kPageTitleTags.size(); ++i) {
    if (!text.starts_with(kPageTitleTags[i])) continue;
    const std::string without = WithoutEvery(text, kPageTitleTags[i]);
    text = content::TrimBlanks(without);
    break;
  }
  if (index == 0) return text;
  return fmt::format("{} {}", kPageTitleTags[static_cast<std::size_t>(index)], text);
}

}  // namespace quill::shell
