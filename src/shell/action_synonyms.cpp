#include "shell/action_synonyms.h"

#include "shell/page_title_tag.h"

namespace quill::shell {
namespace {

constexpr std::string_view kTitlePrefix = "menu";

/// Item `index` of a list separated by semicolons; empty beyond its end.
std::string_view Item(std::string_view list, std::int64_t index) {
  for (; index > 0; --index) {
    const std::size_t end = list.find(';');
    if (end == std::string_view::npos) return {};
    list.remove_prefix(end + 1);
  }
  return list.substr(0, list.find(';'));
}

}  // namespace

std::string SynonymKey(std::string_view titleKey) {
  if (!titleKey.starts_with(kTitlePrefix) || titleKey.size() == kTitlePrefix.size()) return "";
  std::string key = "syn";
  return key += titleKey.substr(kTitlePrefix.size());
}

std::string Synonyms(const StringTable& strings, const CommandRow& row,
                     std::optional<std::int64_t> argument) {
  const std::string key = SynonymKey(row.titleKey);
  std::string synonyms(strings.Has(key) ? strings.Text(key) : std::string_view());
  if (row.number != kPageTitleTagCommand || !argument || !IsPageTitleTag(*argument)) return synonyms;
  std::string named(Item(strings.Text("strPageTitleTagNames"), *argument));
  return named.append(",").append(synonyms);
}

}  // namespace quill::shell
