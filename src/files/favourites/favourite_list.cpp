#include "files/favourites/favourite_list.h"

#include <algorithm>
#include <optional>

#include "content/unicode_text.h"

namespace quill::files {
namespace {

/// The text behind a key; nothing for a value of another type. Only what is no text yields both fallbacks.
std::optional<std::string> TextOf(const MConfig& config, std::string_view key) {
  std::string text = config.ReadString(key, "");
  if (text.empty() && !config.ReadString(key, "-").empty()) return std::nullopt;
  return text;
}

}  // namespace

std::vector<Favourite> FavouriteList::All() const {
  std::vector<Favourite> all;
  for (std::string& id : m_config.Keys()) {
    std::optional<std::string> link = TextOf(m_config, id);
    if (link) all.push_back({std::move(id), std::move(*link)});
  }
  return all;
}

Status<> FavouriteList::Add(std::string_view id, std::string_view link) {
  m_config.WriteString(id, link);
  return m_config.Save();
}

Status<> FavouriteList::Remove(std::string_view id) {
  const std::vector<std::string> ids = m_config.Keys();
  if (std::ranges::find(ids, id) == ids.end()) return Done();
  m_config.Remove(id);
  return m_config.Save();
}

std::string_view LinkOfCopiedLines(std::string_view text) {
  const std::vector<std::string_view> lines = content::SplitAtNewlines(text);
  return lines.size() == 2 ? lines[1] : std::string_view();
}

}  // namespace quill::files
