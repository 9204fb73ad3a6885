#include "tools/syntax_highlight_text.h"

#include "content/find_text.h"
#include "content/text_sink.h"
#include "content/unicode_text.h"

namespace quill::tools {
namespace {

struct Entity {
  std::string_view name;
  char character;
};

constexpr Entity kReduced[] = {{"&nbsp;", ' '}, {"&apos;", '\''}, {"&quot;", '"'}, {"&amp;", '&'}};

constexpr std::string_view kBodyStart = "<body";
constexpr std::string_view kBodyEnd = "</body";

/// The three replacements in one pass. They come one after the other, but only blanks interact: a pair is
/// taken before the blank behind a ">" is looked at.
void AppendFittedBody(std::string& out, std::string_view body) {
  content::TextSink sink(out, body.size() + body.size() / 2);
  bool isAfterBracket = false;
  for (std::size_t at = 0; at < body.size();) {
    const std::size_t special = std::min(body.find_first_of(" \n", at), body.size());
    if (special > at) {
      sink.Append(body.substr(at, special - at));
      isAfterBracket = body[special - 1] == '>';
      at = special;
      continue;
    }
    if (body[at] == '\n') {
      sink.Append("<br>\n");
      isAfterBracket = false;
      ++at;
    } else if (body.substr(at, 2) == "  ") {
      sink.Append("&nbsp;&nbsp;");
      isAfterBracket = false;
      at += 2;
    } else {
      sink.Append(isAfterBracket ? std::string_view("&nbsp;") : std::string_view(" "));
      isAfterBracket = false;
      ++at;
    }
  }
}

}  // namespace

std::string CodeFileText(std::string_view code) {
  std::string text;
  text.reserve(code.size() + code.size() / 8);
  bool isFirst = true;
  for (const std::string_view line : content::SplitAtNewlines(code)) {
    if (!isFirst) text += '\n';
    isFirst = false;
    text += line.empty() ? std::string_view(" ") : line;
  }
  return text;
}

std::string ReduceEntities(std::string_view html) {
  std::string out;
  content::TextSink sink(out, html.size());
  for (std::size_t at = 0; at < html.size();) {
    const std::size_t ampersand = std::min(html.find('&', at), html.size());
    sink.Append(html.substr(at, ampersand - at));
    if (ampersand == html.size()) break;
    const std::string_view rest = html.substr(ampersand);
    const auto* entity =
        std::ranges::find_if(kReduced, [rest](const Entity& row) { return rest.starts_with(row.name); });
    const bool isReduced = entity != std::end(kReduced);
    sink.Append(isReduced ? entity->character : '&');
    at = ampersand + (isReduced ? entity->name.size() : 1);
  }
  return out;
}

std::string ClaimUtf8(std::string html) {
  constexpr std::string_view kClaim = "ISO-8859-1";
  const std::size_t head = std::min(html.find("<body"), html.size());
  const std::size_t at = std::string_view(html).substr(0, head).find(kClaim);
  if (at != std::string_view::npos) html.replace(at, kClaim.size(), "UTF-8");
  return html;
}

std::string ConvertToFit1651(std::string_view html) {
  const std::size_t start = content::FindText(html, kBodyStart);
  if (start == std::string_view::npos) return "<body</body";
  const std::size_t bodyAt = start + kBodyStart.size();
  const std::size_t end = content::FindText(html, kBodyEnd, bodyAt);
  std::string out(html.substr(0, bodyAt));
  if (end != std::string_view::npos) AppendFittedBody(out, html.substr(bodyAt, end - bodyAt));
  out += kBodyEnd;
  if (end != std::string_view::npos) out += html.substr(end + kBodyEnd.size());
  return out;
}

std::string FrameCode(std::string_view html, const CodeFrame& frame) {
  if (!frame.isFramed && !frame.isBold) return std::string(html);
  std::string before;
  if (frame.isFramed) before = "<table border=1 bgcolor='" + frame.color + "'><tr><td>";
  if (frame.isBold) before += "<b>";
  std::string after = frame.isBold ? "</b>" : "";
  if (frame.isFramed) after += "</td></tr></table>";
  return content::ReplaceAll(content::ReplaceAll(html, "<pre", before + "<pre"), "</pre>", "</pre>" + after);
}

}  // namespace quill::tools
