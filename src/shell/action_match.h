#pragma once
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "shell/search_text.h"

namespace quill::shell {

/// How a query was met, best first.
enum class MatchKind : std::uint8_t {
  ExactTitle,
  TitlePrefix,
  WordPrefixes,  ///< "up ca", "ca up" and "uc" for "UPPER CASE", or exactly a synonym
  Substring,
  Synonym,
  Group,      ///< words of the query name the action's group
  Mistyped,   ///< one letter is wrong, missing, too many, or two are swapped
  Scattered,  ///< the letters occur in the title in this order
};

/// Matched letters, as indices of the folded title.
struct LetterRange {
  std::size_t begin, end;
};

struct ActionMatch {
  MatchKind kind;
  std::uint32_t penalty;  ///< within one kind: the smaller, the better
  std::vector<LetterRange> letters;
};

/// What an action can be found by.
struct SearchableAction {
  SearchText title;
  std::vector<SearchText> synonyms;
  SearchText group;
};

/// A query, prepared once for all actions.
struct SearchQuery {
  explicit SearchQuery(std::string_view text);

  struct Token {
    std::u32string_view letters;
    std::size_t position;  ///< its place among the words that were typed
  };

  std::u32string letters;       ///< with single spaces
  std::u32string solid;         ///< without spaces
  std::vector<Token> byLength;  ///< the typed words, longest first
};

/// The best way in which the query meets the action, if any. O(query x text).
std::optional<ActionMatch> MatchAction(const SearchQuery& query, const SearchableAction& action);

}  // namespace quill::shell
