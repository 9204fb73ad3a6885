#pragma once
#include <optional>

#include "shell/action_match.h"

namespace quill::shell {

/// Penalties of the kind `WordPrefixes`. None: all words of the title are strung together ("uc").
inline constexpr std::uint32_t kBeginningsPenalty = 1;    ///< each typed word begins a word
inline constexpr std::uint32_t kExactSynonymPenalty = 2;  ///< what was typed is a synonym, to the letter
inline constexpr std::uint32_t kOutOfOrderPenalty = 2;    ///< added
inline constexpr std::uint32_t kStrungPenalty = 3;        ///< added, besides the words passed over

/// Meets every typed word with words of the title of its own: one that it begins, or several, in the title's
/// order, whose beginnings it strings together ("uc", "upca"). Typed words that stand in another order than
/// the title's, and title words that are passed over, cost. Nothing when a typed word finds no place.
std::optional<ActionMatch> MatchWordPrefixes(const SearchQuery& query, const SearchText& title);

}  // namespace quill::shell
