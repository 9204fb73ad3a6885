#include "online/resolved_pages.h"

#include <algorithm>

#include "content/unicode_text.h"

namespace quill::online {
namespace {

constexpr std::size_t kMostPages = 500;

/// Finds the page of a user in a list of entries.
template <class Entries>
auto Locate(Entries& entries, std::string_view userId, std::string_view pageClientId) {
  const std::string id = content::ToLower(pageClientId);
  return std::ranges::find_if(
      entries, [&](const auto& entry) { return entry.pageClientId == id && entry.userId == userId; });
}

}  // namespace

std::optional<OnlinePlace> ResolvedPages::Find(std::string_view userId, std::string_view pageClientId) const {
  const auto found = Locate(m_pages, userId, pageClientId);
  if (found == m_pages.end()) return std::nullopt;
  return found->place;
}

void ResolvedPages::Remember(std::string_view userId, std::string_view pageClientId, OnlinePlace place) {
  Forget(userId, pageClientId);
  if (m_pages.size() >= kMostPages) m_pages.erase(m_pages.begin());
  m_pages.push_back({std::string(userId), content::ToLower(pageClientId), std::move(place)});
}

void ResolvedPages::Forget(std::string_view userId, std::string_view pageClientId) {
  const auto found = Locate(m_pages, userId, pageClientId);
  if (found != m_pages.end()) m_pages.erase(found);
}

}  // namespace quill::online
