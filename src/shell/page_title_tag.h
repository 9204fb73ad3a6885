#pragma once
#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace quill::shell {

/// The signs that can stand in front of a page title; index 0 is no sign.
inline constexpr std::array<std::string_view, 16> kPageTitleTags = {
    "", "☐", "☑", "♥", "🎫", "🏠", "🔒", "📖", "✉", "📎", "❌", "🧾", "♦", "♣", "♠", "⭐"};

/// The number of the command that puts a sign in front of a title; its argument is the index.
inline constexpr std::int64_t kPageTitleTagCommand = 25;

/// True for an index of `kPageTitleTags`.
constexpr bool IsPageTitleTag(std::int64_t index) {
  return index >= 0 && index < static_cast<std::int64_t>(kPageTitleTags.size());
}

/// The title with its tag exchanged for tag `index`. The first of the tags 1 to 15 that the trimmed title
/// begins with is taken out wherever it occurs; only one tag goes. Index 0 puts none in its place.
/// An index outside the table yields an empty text. O(title).
std::string ExchangePageTitleTag(std::string_view title, std::int64_t index);

}  // namespace quill::shell
