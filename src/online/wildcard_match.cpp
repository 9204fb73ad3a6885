#include "online/wildcard_match.h"

#include <unicode/uchar.h>

#include "content/unicode_text.h"

namespace quill::online {
namespace {

/// The character at a place that exists, its case folded.
content::DecodedChar FoldedAt(std::string_view text, std::size_t at) {
  constexpr char32_t kBehindUnicode = 0x110000;
  const content::DecodedChar c = content::DecodeUtf8(text, at);
  if (c.length == 0) return {kBehindUnicode + static_cast<unsigned char>(text[at]), 1};
  return {static_cast<char32_t>(u_foldCase(static_cast<UChar32>(c.code), U_FOLD_CASE_DEFAULT)), c.length};
}

}  // namespace

bool MatchesWildcards(std::string_view text, std::string_view pattern) {
  std::size_t inText = 0;
  std::size_t inPattern = 0;
  // Where to go on when what follows the last "*" does not fit: only that star has to give way, never an
  // earlier one.
  std::size_t behindStar = std::string_view::npos;
  std::size_t starEnd = 0;
  while (inText < text.size()) {
    if (inPattern < pattern.size()) {
      const content::DecodedChar wanted = FoldedAt(pattern, inPattern);
      if (wanted.code == U'*') {
        behindStar = ++inPattern;
        starEnd = inText;
        continue;
      }
      const content::DecodedChar found = FoldedAt(text, inText);
      if (wanted.code == U'?' || wanted.code == found.code) {
        inText += found.length;
        inPattern += wanted.length;
        continue;
      }
    }
    if (behindStar == std::string_view::npos) return false;
    starEnd += FoldedAt(text, starEnd).length;
    inText = starEnd;
    inPattern = behindStar;
  }
  return pattern.find_first_not_of('*', inPattern) == std::string_view::npos;
}

}  // namespace quill::online
