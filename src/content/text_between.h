#pragma once
#include <string>
#include <string_view>

namespace quill::content {

/// What stands before and after the selection in a pasteboard document; only the first of each counts.
inline constexpr std::string_view kStartMarker = "<!--StartFragment-->";
inline constexpr std::string_view kEndMarker = "<!--EndFragment-->";

/// Head and tail of the documents that are written from scratch.
inline constexpr std::string_view kBuiltHead =
    "<html><head><meta http-equiv='Content-Type' content='text/html; charset=utf-8'></head><body>";
inline constexpr std::string_view kBuiltTail = "</body></html>";

/// Returns the text after the first `start` up to the next `end`.
///
/// An empty `start` means the beginning, an empty `end` the end. A marker that does not occur
/// yields an empty text. Matching is exact; only first occurrences count. O(text).
std::string_view TextBetween(std::string_view text, std::string_view start, std::string_view end);

/// The text without any start or end marker. O(text).
std::string StripFragmentMarkers(std::string_view text);

/// The three pieces of a pasteboard document, as views into it.
struct FragmentParts {
  std::string_view head;      ///< empty when there is no start marker
  std::string_view fragment;  ///< empty when either marker is missing
  std::string_view tail;      ///< empty when there is no end marker
};

/// Cuts a pasteboard document at its markers. The views live as long as `html` does. O(html).
FragmentParts CutFragment(std::string_view html);

/// Head, start marker, fragment, end marker and tail in one text.
std::string JoinFragment(std::string_view head, std::string_view fragment, std::string_view tail);

}  // namespace quill::content
