#include "content/entities.h"

#include <cstring>

#include "content/find_text.h"
#include "content/latin1_names.h"
#include "content/numeric_references.h"
#include "content/unicode_text.h"

namespace quill::content {
namespace {

/// All names at once, within the text: what they stand for is shorter and never a part of another name.
void DecodeLatin1Names(std::string& text) {
  std::size_t read = 0;
  std::size_t written = 0;
  for (std::size_t at = 0; (at = text.find('&', at)) != std::string::npos;) {
    const Latin1Match match = MatchLatin1Name(std::string_view(text).substr(at + 1));
    if (match.length == 0) {
      ++at;
      continue;
    }
    std::string character;
    AppendUtf8(character, match.code);
    std::memmove(text.data() + written, text.data() + read, at - read);
    written += at - read;
    std::memcpy(text.data() + written, character.data(), character.size());
    written += character.size();
    read = at += 1 + match.length;
  }
  text.erase(written, read - written);
}

struct Replacement {
  std::string_view from;
  std::string_view to;
};

template <std::size_t kCount>
void ReplaceInOrder(std::string& text, const Replacement (&replacements)[kCount]) {
  for (const auto& [from, to] : replacements) ReplaceAllWithin(text, from, to);
}

}  // namespace

std::string DecodeHtmlEntities(std::string_view text) {
  std::string decoded(text);
  if (text.find('&') == std::string_view::npos) return decoded;
  constexpr Replacement kPredefined[] = {
      {"&amp;", "&"}, {"&lt;", "<"}, {"&gt;", ">"}, {"&apos;", "'"}, {"&quot;", "\""}};
  DecodeLatin1Names(decoded);
  ReplaceInOrder(decoded, kPredefined);
  DecodeNumericReferences(decoded);
  return decoded;
}

std::string EscapeXmlText(std::string_view text) {
  std::string out;
  out.reserve(text.size() + text.size() / 8);
  for (const char c : text) {
    switch (c) {
      case '&':
        out.append("&amp;");
        break;
      case '<':
        out.append("&lt;");
        break;
      case '>':
        out.append("&gt;");
        break;
      default:
        out += c;
    }
  }
  return out;
}

std::string DecodeBasicEntities(std::string_view text) {
  constexpr Replacement kCommon[] = {{"&nbsp;", " "}, {"&lt;", "<"},    {"&gt;", ">"},
                                     {"&apos;", "'"}, {"&quot;", "\""}, {"&amp;", "&"}};
  std::string decoded(text);
  ReplaceInOrder(decoded, kCommon);
  return decoded;
}

}  // namespace quill::content
