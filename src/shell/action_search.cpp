#include "shell/action_search.h"

#include <algorithm>
#include <tuple>

namespace quill::shell {
namespace {

struct Ranked {
  MatchKind kind;
  bool unavailable;
  std::uint32_t penalty;
  std::size_t recency;  ///< 0 for the last used one
  SearchHit hit;

  auto Order() const { return std::tuple(kind, unavailable, penalty, recency, hit.entry); }
};

/// The beginning of a title counts no more than that of a word when the action cannot be run: for "date" the
/// actions that insert one come before a greyed "Date and Time Format".
MatchKind KindInRank(MatchKind kind, bool unavailable) {
  return unavailable && kind == MatchKind::TitlePrefix ? MatchKind::WordPrefixes : kind;
}

/// The separators that translators write: ASCII, full-width, ideographic, Arabic.
std::size_t FindComma(std::string_view text, std::size_t from, std::size_t& length) {
  std::size_t first = std::string_view::npos;
  for (const std::string_view comma : {",", "，", "、", "،", ";"}) {
    const std::size_t at = text.find(comma, from);
    if (at >= first) continue;
    first = at;
    length = comma.size();
  }
  return first;
}

std::vector<SearchText> FoldSynonyms(std::string_view list) {
  std::vector<SearchText> synonyms;
  for (std::size_t at = 0; at < list.size();) {
    std::size_t length = 1;
    const std::size_t end = std::min(FindComma(list, at, length), list.size());
    SearchText synonym = FoldForSearch(list.substr(at, end - at));
    if (!synonym.letters.empty()) synonyms.push_back(std::move(synonym));
    at = end + length;
  }
  return synonyms;
}

/// Matched letters as ranges of the title's characters, sorted and joined.
std::vector<TextRange> InTitle(std::vector<LetterRange> letters, const SearchText& title) {
  std::sort(letters.begin(), letters.end(),
            [](const LetterRange& a, const LetterRange& b) { return a.begin < b.begin; });
  std::vector<TextRange> ranges;
  for (const LetterRange& part : letters) {
    const std::size_t begin = title.begins[part.begin], end = title.ends[part.end - 1];
    if (ranges.empty() || begin > ranges.back().begin + ranges.back().length) {
      ranges.push_back({begin, end - begin});
    } else {
      ranges.back().length = std::max(ranges.back().length, end - ranges.back().begin);
    }
  }
  return ranges;
}

}  // namespace

ActionSearch::ActionSearch(std::span<const SearchEntry> entries) {
  m_actions.reserve(entries.size());
  for (const SearchEntry& entry : entries) {
    m_actions.push_back(
        {FoldForSearch(entry.title), FoldSynonyms(entry.synonyms), FoldForSearch(entry.group)});
  }
}

std::vector<SearchHit> ActionSearch::Find(std::string_view query, std::span<const std::size_t> recent,
                                          const std::vector<bool>& unavailable) const {
  std::vector<std::size_t> recency(m_actions.size(), recent.size());
  for (std::size_t i = recent.size(); i-- > 0;) {
    if (recent[i] < recency.size()) recency[recent[i]] = i;
  }
  const auto isGrey = [&](std::size_t i) { return i < unavailable.size() && unavailable[i]; };
  const SearchQuery prepared(query);
  std::vector<Ranked> ranked;
  for (std::size_t i = 0; i < m_actions.size(); ++i) {
    if (prepared.letters.empty()) {
      ranked.push_back({MatchKind::ExactTitle, isGrey(i), 0, recency[i], {i, {}}});
    } else if (auto match = MatchAction(prepared, m_actions[i])) {
      auto ranges = InTitle(std::move(match->letters), m_actions[i].title);
      ranked.push_back({KindInRank(match->kind, isGrey(i)),
                        isGrey(i),
                        match->penalty,
                        recency[i],
                        {i, std::move(ranges)}});
    }
  }
  std::sort(ranked.begin(), ranked.end(),
            [](const Ranked& a, const Ranked& b) { return a.Order() < b.Order(); });
  std::vector<SearchHit> hits;
  hits.reserve(ranked.size());
  for (Ranked& one : ranked) hits.push_back(std::move(one.hit));
  return hits;
}

}  // namespace quill::shell
