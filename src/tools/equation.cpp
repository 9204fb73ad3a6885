#include "tools/equation.h"

#include <algorithm>

#include "content/text_between.h"
#include "content/unicode_text.h"

namespace quill::tools {
namespace {

struct Delimiters {
  std::string_view start;
  std::string_view end;
};
constexpr Delimiters kDelimiters[] = {{"$$", "$$"}, {"\\[", "\\]"}, {"\\{", "\\}"}, {"$", "$"}};

constexpr std::string_view kPngPrefix = "data:image/png;base64,";

bool IsBase64(char c) {
  return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '+' || c == '/' ||
         c == '=';
}

std::string JoinTrimmedLines(std::string_view text) {
  std::string joined;
  joined.reserve(text.size());
  for (const std::string_view line : content::SplitAtNewlines(text)) joined += content::TrimWhite(line);
  return joined;
}

std::string PrefixTags(std::string_view text) {
  std::string out;
  out.reserve(text.size() + text.size() / 4);
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] != '<') {
      out += text[i];
      continue;
    }
    const std::string_view next = text.substr(i + 1, 2);
    if (next.size() < 2) continue;
    if (next == "/m") {
      out += "</mml:";
      ++i;
    } else if (next[0] == 'm') {
      out += "<mml:";
    }
  }
  return out;
}

/// Appends `text` with every "xmlns" followed by the prefix it declares.
void AppendWithPrefixDeclared(std::string& out, std::string_view text) {
  constexpr std::string_view kName = "xmlns";
  for (std::size_t at = text.find(kName); at != text.npos; at = text.find(kName)) {
    out.append(text.substr(0, at + kName.size())).append(":mml");
    text.remove_prefix(at + kName.size());
  }
  out += text;
}

}  // namespace

std::string_view GetPlainLaTeX(std::string_view text) {
  for (const Delimiters& delimiters : kDelimiters) {
    const std::string_view plain = content::TextBetween(text, delimiters.start, delimiters.end);
    if (!plain.empty()) return plain;
  }
  return {};
}

std::string DisplayFormula(std::string_view plain) {
  std::string out = "$$";
  return out.append(plain).append("$$");
}

std::string ConvertMathMLToONMathML(std::string_view mathMl) {
  const std::string tagged = PrefixTags(JoinTrimmedLines(mathMl));
  std::string out;
  out.reserve(tagged.size() + 64);
  out += "<!--[if mathML]>";
  AppendWithPrefixDeclared(out, tagged);
  return out += "<![endif]-->";
}

Result<std::string, std::monostate> PictureHtml(std::string_view dataUrl, ShownSize size) {
  const bool isPng = dataUrl.size() > kPngPrefix.size() &&
                     dataUrl.substr(0, kPngPrefix.size()) == kPngPrefix &&
                     std::all_of(dataUrl.begin() + kPngPrefix.size(), dataUrl.end(), IsBase64);
  if (!isPng) return Failure{std::monostate()};
  std::string html = "<img src='";
  html.append(dataUrl).append("'");
  if (size.width > 0 && size.height > 0) {
    html += " width='" + std::to_string(size.width) + "' height='" + std::to_string(size.height) + "'";
  }
  return html += ">";
}

}  // namespace quill::tools
