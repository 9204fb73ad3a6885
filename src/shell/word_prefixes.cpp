#include "shell/word_prefixes.h"

#include <algorithm>
#include <array>
#include <bitset>
#include <limits>

namespace quill::shell {
namespace {

constexpr std::size_t kMostWords = 48;    // of a title; later ones are not looked at
constexpr std::size_t kMostLetters = 48;  // of a typed word that strings beginnings together
constexpr std::uint32_t kPassedOver = 2;
constexpr std::uint32_t kLeftOver = 1;

using UsedWords = std::bitset<kMostWords>;

std::size_t WordCount(const SearchText& title) {
  return std::min(title.words.size(), kMostWords);
}

/// The shortest way to read a typed word as beginnings of free words, from word `m_word` and letter on.
class StrungBeginnings {
 public:
  StrungBeginnings(std::u32string_view token, const SearchText& title, const UsedWords& used)
      : m_token(token), m_title(title), m_used(used) {}

  struct Found {
    std::uint32_t cost;
    std::vector<LetterRange> letters;
    std::vector<std::size_t> words;
  };

  std::optional<Found> Find() {
    if (m_token.size() > kMostLetters || !CanBegin()) return std::nullopt;
    const std::size_t words = WordCount(m_title);
    for (std::size_t left = 0; left <= words; ++left)
      m_best[words - left][m_token.size()] = {static_cast<std::uint32_t>(left) * kLeftOver, 0};
    std::fill_n(m_best[words].begin(), m_token.size(), kUnreachable);
    for (std::size_t word = words; word-- > 0;) FillRow(word);
    if (m_best[0][0].cost >= kUnreachable.cost) return std::nullopt;
    return Collect();
  }

 private:
  struct Step {
    std::uint32_t cost;
    std::uint32_t taken;  ///< letters taken from this word; 0 passes it over
  };
  static constexpr Step kUnreachable{std::numeric_limits<std::uint32_t>::max() / 2, 0};

  bool CanBegin() const {
    for (std::size_t word = 0; word < WordCount(m_title); ++word) {
      if (!m_used[word] && m_title.letters[m_title.words[word]] == m_token.front()) return true;
    }
    return false;
  }

  /// Costs from this word on, for every number of letters that are already read.
  void FillRow(std::size_t word) {
    const std::u32string_view letters = m_title.Word(word).substr(0, m_title.WordLength(word));
    for (std::size_t read = 0; read < m_token.size(); ++read) {
      Step& best = m_best[word][read];
      best = {m_best[word + 1][read].cost + kPassedOver, 0};
      if (m_used[word]) continue;
      const std::size_t most = std::min(letters.size(), m_token.size() - read);
      for (std::size_t taken = 1; taken <= most && letters[taken - 1] == m_token[read + taken - 1]; ++taken) {
        const std::uint32_t cost = m_best[word + 1][read + taken].cost;
        if (cost <= best.cost) best = {cost, static_cast<std::uint32_t>(taken)};
      }
    }
  }

  Found Collect() const {
    Found found{m_best[0][0].cost, {}, {}};
    for (std::size_t word = 0, read = 0; read < m_token.size(); ++word) {
      const std::size_t taken = m_best[word][read].taken;
      if (taken == 0) continue;
      const std::size_t begin = m_title.words[word];
      found.letters.push_back({begin, begin + taken});
      found.words.push_back(word);
      read += taken;
    }
    return found;
  }

  std::u32string_view m_token;
  const SearchText& m_title;
  const UsedWords& m_used;
  /// By word and letters read; only the part that this title and this typed word need is filled.
  std::array<std::array<Step, kMostLetters + 1>, kMostWords + 1> m_best;
};

}  // namespace

std::optional<ActionMatch> MatchWordPrefixes(const SearchQuery& query, const SearchText& title) {
  ActionMatch match{MatchKind::WordPrefixes, kBeginningsPenalty, {}};
  const std::size_t words = WordCount(title);
  if (query.byLength.size() > words) return std::nullopt;
  UsedWords used;
  std::vector<std::size_t> places(query.byLength.size());
  std::vector<const SearchQuery::Token*> homeless;
  // Longest first: whatever a longer typed word leaves free is right for its own beginning, too.
  for (const SearchQuery::Token& token : query.byLength) {
    std::size_t word = 0;
    while (word < words && (used[word] || !title.Word(word).starts_with(token.letters))) ++word;
    if (word == words) {
      homeless.push_back(&token);
      continue;
    }
    used.set(word);
    places[token.position] = word;
    match.letters.push_back({title.words[word], title.words[word] + token.letters.size()});
  }
  for (const SearchQuery::Token* token : homeless) {
    const auto found = StrungBeginnings(token->letters, title, used).Find();
    if (!found) return std::nullopt;
    for (const std::size_t word : found->words) used.set(word);
    places[token->position] = found->words.front();
    match.letters.insert(match.letters.end(), found->letters.begin(), found->letters.end());
    const bool isWholeTitle = found->letters.size() == words && query.solid.size() == words;
    match.penalty = isWholeTitle ? 0 : match.penalty + kStrungPenalty + found->cost;
  }
  if (!std::is_sorted(places.begin(), places.end())) match.penalty += kOutOfOrderPenalty;
  return match;
}

}  // namespace quill::shell
