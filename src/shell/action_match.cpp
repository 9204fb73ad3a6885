#include "shell/action_match.h"

#include <algorithm>

#include "shell/word_prefixes.h"

namespace quill::shell {
namespace {

/// Shorter words are not looked at for mistakes: almost every other short word is one letter away.
constexpr std::size_t kShortestMistyped = 4;
constexpr std::uint32_t kGap = 4;           // each gap in a scattered match, besides its letters
constexpr std::uint32_t kNotInTitle = 1;    // a mistyped word of the synonyms instead of the title
constexpr std::size_t kLongestQuery = 100;  // letters; nothing in the tables is that long

/// Whether `typed` begins `word` except for one letter that is wrong, missing, too many, or swapped with its
/// neighbour. The first letter is right unless it is swapped.
bool BeginsMistyped(std::u32string_view typed, std::u32string_view word) {
  if (typed.size() < kShortestMistyped || word.size() + 1 < typed.size()) return false;
  const auto [a, b] = std::mismatch(typed.begin(), typed.end(), word.begin(), word.end());
  const auto at = static_cast<std::size_t>(a - typed.begin());
  if (at == typed.size()) return true;
  const std::u32string_view typedRest = typed.substr(at), rest = word.substr(at);
  const auto begins = [&](std::size_t skipTyped, std::size_t skip) {
    return rest.size() >= skip && rest.substr(skip).starts_with(typedRest.substr(skipTyped));
  };
  const bool isSwapped = typedRest.size() >= 2 && rest.size() >= 2 && typedRest[0] == rest[1] &&
                         typedRest[1] == rest[0] && begins(2, 2);
  return isSwapped || (at > 0 && (begins(1, 1) || begins(0, 1) || begins(1, 0)));
}

template <class Meets>
std::optional<std::size_t> FindWord(const SearchText& text, Meets meets) {
  for (std::size_t i = 0; i < text.words.size(); ++i) {
    if (meets(text.Word(i))) return i;
  }
  return std::nullopt;
}

/// The whole query as the beginning of the title or as a part of it.
std::optional<ActionMatch> MatchWhole(const SearchQuery& query, const SearchText& title, bool mayBeInside) {
  const std::size_t at = title.letters.find(query.letters);
  if (at == std::u32string::npos || (at > 0 && !mayBeInside)) return std::nullopt;
  const bool isExact = title.letters.size() == query.letters.size();
  const MatchKind kind = at > 0    ? MatchKind::Substring
                         : isExact ? MatchKind::ExactTitle
                                   : MatchKind::TitlePrefix;
  return ActionMatch{kind, 0, {{at, at + query.letters.size()}}};
}

/// The query as the beginning of a synonym.
std::optional<ActionMatch> MatchSynonym(const SearchQuery& query, const SearchableAction& action) {
  const auto begins = [&](const SearchText& synonym) { return synonym.letters.starts_with(query.letters); };
  if (std::none_of(action.synonyms.begin(), action.synonyms.end(), begins)) return std::nullopt;
  return ActionMatch{MatchKind::Synonym, 0, {}};
}

/// Words of the title, or a synonym to the letter: "toc" means the table of contents before it means the
/// beginnings of "tOGGLE cASE".
std::optional<ActionMatch> MatchWords(const SearchQuery& query, const SearchableAction& action) {
  auto match = MatchWordPrefixes(query, action.title);
  if (match && match->penalty <= kExactSynonymPenalty) return match;
  const auto isExact = [&](const SearchText& synonym) { return synonym.letters == query.letters; };
  if (std::none_of(action.synonyms.begin(), action.synonyms.end(), isExact)) return match;
  if (!match) return ActionMatch{MatchKind::WordPrefixes, kExactSynonymPenalty, {}};
  match->penalty = kExactSynonymPenalty;
  return match;
}

/// Where a single typed word is at home: title, synonyms, group, and the same with a mistake.
std::optional<ActionMatch> MatchToken(std::u32string_view token, const SearchableAction& action) {
  const auto exact = [&](std::u32string_view word) { return word.starts_with(token); };
  const auto nearly = [&](std::u32string_view word) { return BeginsMistyped(token, word); };
  const auto inTitle = [&](MatchKind kind, std::size_t word) {
    const std::size_t begin = action.title.words[word];
    return ActionMatch{kind, 0, {{begin, begin + std::min(token.size(), action.title.Word(word).size())}}};
  };
  const auto inSynonyms = [&](auto meets) {
    return std::any_of(action.synonyms.begin(), action.synonyms.end(),
                       [&](const SearchText& synonym) { return FindWord(synonym, meets).has_value(); });
  };
  if (const auto word = FindWord(action.title, exact)) return inTitle(MatchKind::WordPrefixes, *word);
  if (inSynonyms(exact)) return ActionMatch{MatchKind::Synonym, 1, {}};
  if (FindWord(action.group, exact)) return ActionMatch{MatchKind::Group, 0, {}};
  if (const auto word = FindWord(action.title, nearly)) return inTitle(MatchKind::Mistyped, *word);
  if (inSynonyms(nearly)) return ActionMatch{MatchKind::Mistyped, kNotInTitle, {}};
  return std::nullopt;
}

/// Every typed word somewhere; as good as the worst of them.
std::optional<ActionMatch> MatchEachToken(const SearchQuery& query, const SearchableAction& action) {
  ActionMatch all{MatchKind::ExactTitle, 0, {}};
  for (const SearchQuery::Token& token : query.byLength) {
    auto one = MatchToken(token.letters, action);
    if (!one) return std::nullopt;
    all.kind = std::max(all.kind, one->kind);
    all.penalty += one->penalty;
    all.letters.insert(all.letters.end(), one->letters.begin(), one->letters.end());
  }
  // Several typed words may begin the same word of the title; that is no match of distinct words.
  if (all.kind < MatchKind::Substring) all.kind = MatchKind::Substring;
  return all;
}

/// All letters in order. The last one is looked for from the front, then the others backwards from there,
/// which draws the match together.
std::optional<ActionMatch> MatchScattered(const SearchQuery& query, const SearchText& title) {
  std::size_t end = 0;
  for (const char32_t letter : query.solid) {
    end = title.letters.find(letter, end);
    if (end == std::u32string::npos) return std::nullopt;
    ++end;
  }
  ActionMatch match{MatchKind::Scattered, 0, {}};
  std::size_t at = end;
  for (std::size_t i = query.solid.size(); i-- > 0;) {
    const std::size_t found = title.letters.rfind(query.solid[i], at - 1);
    const bool joins = !match.letters.empty() && found + 1 == at;
    if (!joins && !match.letters.empty()) match.penalty += kGap + static_cast<std::uint32_t>(at - found - 1);
    if (joins) {
      match.letters.back().begin = found;
    } else {
      match.letters.push_back({found, found + 1});
    }
    at = found;
  }
  return match;
}

}  // namespace

SearchQuery::SearchQuery(std::string_view text) {
  SearchText folded = FoldForSearch(text.substr(0, kLongestQuery * 4));
  letters = std::move(folded.letters);
  if (letters.size() > kLongestQuery) letters.resize(kLongestQuery);
  const std::u32string_view view = letters;
  for (std::size_t at = 0; at < view.size();) {
    const std::size_t end = std::min(view.find(U' ', at), view.size());
    if (end > at) byLength.push_back({view.substr(at, end - at), byLength.size()});
    at = end + 1;
  }
  for (const Token& token : byLength) solid += token.letters;
  std::stable_sort(byLength.begin(), byLength.end(),
                   [](const Token& a, const Token& b) { return a.letters.size() > b.letters.size(); });
}

std::optional<ActionMatch> MatchAction(const SearchQuery& query, const SearchableAction& action) {
  if (auto match = MatchWhole(query, action.title, false)) return match;
  if (auto match = MatchWords(query, action)) return match;
  if (auto match = MatchWhole(query, action.title, true)) return match;
  if (auto match = MatchSynonym(query, action)) return match;
  if (auto match = MatchEachToken(query, action)) return match;
  return MatchScattered(query, action.title);
}

}  // namespace quill::shell
