#pragma once
#include <cstdio>
#include <string>
#include <string_view>
#include <vector>

/// The rules of links read word by word, and what links are built from: for tests and the fuzzer.
namespace quill::oracle {

/// A link of any shape, near-misses included: each byte of the seed is one piece.
inline std::string GrowLink(std::string_view seed) {
  static const std::string_view kPieces[] = {"onenote:",
                                             "https://",
                                             "d.docs.live.net",
                                             "/",
                                             "7c1f0a93b2d84e65",
                                             "Documents",
                                             ".one",
                                             "#",
                                             "&",
                                             "section-id=",
                                             "page-id=",
                                             "&object-id=",
                                             "{",
                                             "}",
                                             "0E1B-AF",
                                             "&end",
                                             "%20",
                                             "%C3%A9",
                                             "%FF",
                                             "\xC2\xA0",
                                             " ",
                                             "}{",
                                             "62",
                                             "\r\n",
                                             "_"};
  std::string link;
  for (const char c : seed) link += kPieces[static_cast<unsigned char>(c) % std::size(kPieces)];
  return link;
}

/// Every byte escaped: no part of a link can then be taken for another one.
inline std::string EscapeAll(std::string_view text) {
  std::string escaped;
  for (const char c : text) {
    char digits[4];
    std::snprintf(digits, sizeof digits, "%%%02x", static_cast<unsigned char>(c));
    escaped += digits;
  }
  return escaped;
}

/// Whether a text fits a pattern with "*" and "?": every prefix against every prefix. For ASCII.
inline bool MatchesWildcards(std::string_view text, std::string_view pattern) {
  const auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; };
  std::vector<bool> fits(text.size() + 1, false);
  fits[0] = true;
  for (const char wanted : pattern) {
    std::vector<bool> next(text.size() + 1, false);
    next[0] = wanted == '*' && fits[0];
    for (std::size_t i = 1; i <= text.size(); ++i) {
      const bool isSame = wanted == '?' || lower(wanted) == lower(text[i - 1]);
      next[i] = wanted == '*' ? next[i - 1] || fits[i] : isSame && fits[i - 1];
    }
    fits = next;
  }
  return fits[text.size()];
}

}  // namespace quill::oracle
