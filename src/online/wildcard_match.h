#pragma once
#include <string_view>

namespace quill::online {

/// Whether the whole text fits the pattern, in which "*" stands for any characters and "?" for exactly one;
/// letters match in any case. An empty pattern fits the empty text only.
///
/// Patterns come from the service and may be anything: never worse than O(text × pattern), and O(text +
/// pattern) for one without a "*". A byte that is not UTF-8 is a character by itself.
bool MatchesWildcards(std::string_view text, std::string_view pattern);

}  // namespace quill::online
