#include "content/latin1_names.h"

#include <algorithm>
#include <array>
#include <utility>

namespace quill::content {
namespace {

constexpr std::size_t kCount = 96;
constexpr char32_t kFirstCode = 160;
constexpr std::size_t kLongest = 6;

// In the order of their characters, U+00A0 to U+00FF.
constexpr std::array<std::string_view, kCount> kNames = {
    "nbsp",   "iexcl",  "cent",   "pound",  "curren", "yen",    "brvbar", "sect",   "uml",    "copy",
    "ordf",   "laquo",  "not",    "shy",    "reg",    "macr",   "deg",    "plusmn", "sup2",   "sup3",
    "acute",  "micro",  "para",   "middot", "cedil",  "sup1",   "ordm",   "raquo",  "frac14", "frac12",
    "frac34", "iquest", "Agrave", "Aacute", "Acirc",  "Atilde", "Auml",   "Aring",  "AElig",  "Ccedil",
    "Egrave", "Eacute", "Ecirc",  "Euml",   "Igrave", "Iacute", "Icirc",  "Iuml",   "ETH",    "Ntilde",
    "Ograve", "Oacute", "Ocirc",  "Otilde", "Ouml",   "times",  "Oslash", "Ugrave", "Uacute", "Ucirc",
    "Uuml",   "Yacute", "THORN",  "szlig",  "agrave", "aacute", "acirc",  "atilde", "auml",   "aring",
    "aelig",  "ccedil", "egrave", "eacute", "ecirc",  "euml",   "igrave", "iacute", "icirc",  "iuml",
    "eth",    "ntilde", "ograve", "oacute", "ocirc",  "otilde", "ouml",   "divide", "oslash", "ugrave",
    "uacute", "ucirc",  "uuml",   "yacute", "thorn",  "yuml"};

using Entry = std::pair<std::string_view, char32_t>;

constexpr std::array<Entry, kCount> MakeSorted() {
  std::array<Entry, kCount> sorted{};
  for (std::size_t i = 0; i < kCount; ++i) sorted[i] = {kNames[i], kFirstCode + static_cast<char32_t>(i)};
  std::sort(sorted.begin(), sorted.end());
  return sorted;
}

constexpr std::array<Entry, kCount> kSorted = MakeSorted();

}  // namespace

Latin1Match MatchLatin1Name(std::string_view text) {
  const std::size_t length = text.substr(0, kLongest + 1).find(';');
  if (length == std::string_view::npos) return {};
  const std::string_view name = text.substr(0, length);
  const auto* const entry = std::lower_bound(kSorted.begin(), kSorted.end(), name,
                                             [](const Entry& e, std::string_view n) { return e.first < n; });
  if (entry == kSorted.end() || entry->first != name) return {};
  return {entry->second, length + 1};
}

}  // namespace quill::content
