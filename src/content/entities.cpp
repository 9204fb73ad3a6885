#include "content/entities.h"

#include "content/find_text.h"
#include "content/latin1_names.h"
#include "content/numeric_references.h"
#include "content/unicode_text.h"

namespace quill::content {
namespace {

/// All names at once: what they stand for is never a part of another name.
std::string DecodeLatin1Names(std::string_view text) {
  std::string out;
  out.reserve(text.size());
  std::size_t copied = 0;
  for (std::size_t at = 0; (at = text.find('&', at)) != std::string_view::npos;) {
    const Latin1Match match = MatchLatin1Name(text.substr(at + 1));
    if (match.length == 0) {
      ++at;
      continue;
    }
    out.append(text.substr(copied, at - copied));
    AppendUtf8(out, match.code);
    copied = at += 1 + match.length;
  }
  return out.append(text.substr(copied));
}

struct Replacement {
  std::string_view from;
  std::string_view to;
};

template <std::size_t kCount>
std::string ReplaceInOrder(std::string text, const Replacement (&replacements)[kCount]) {
  for (const auto& [from, to] : replacements) {
    if (FindText(text, from) != std::string::npos) text = ReplaceAll(text, from, to);
  }
  return text;
}

}  // namespace

std::string DecodeHtmlEntities(std::string_view text) {
  if (text.find('&') == std::string_view::npos) return std::string(text);
  constexpr Replacement kPredefined[] = {
      {"&amp;", "&"}, {"&lt;", "<"}, {"&gt;", ">"}, {"&apos;", "'"}, {"&quot;", "\""}};
  return DecodeNumericReferences(ReplaceInOrder(DecodeLatin1Names(text), kPredefined));
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
  return ReplaceInOrder(std::string(text), kCommon);
}

}  // namespace quill::content
