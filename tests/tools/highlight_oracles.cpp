#include "tools/highlight_oracles.h"

#include <regex>
#include <set>
#include <vector>

namespace quill::oracle {
namespace {

std::string Replaced(std::string text, const std::string& what, const std::string& by) {
  for (std::size_t at = text.find(what); at != std::string::npos; at = text.find(what, at + by.size()))
    text.replace(at, what.size(), by);
  return text;
}

}  // namespace

std::string CodeFileText(std::string_view code) {
  const std::vector<std::string> breaks{"\v", "\f", "\r", "\xC2\x85", "\xE2\x80\xA8", "\xE2\x80\xA9"};
  std::string text(code);
  for (const std::string& each : breaks) text = Replaced(text, each, "\n");
  std::string out;
  for (std::size_t begin = 0; begin <= text.size();) {
    const std::size_t end = std::min(text.find('\n', begin), text.size());
    const std::string piece = text.substr(begin, end - begin);
    out += (begin == 0 ? "" : "\n") + (piece.empty() ? " " : piece);
    begin = end + 1;
  }
  return out;
}

std::string ReduceEntities(std::string html) {
  html = Replaced(html, "&nbsp;", " ");
  html = Replaced(html, "&apos;", "'");
  html = Replaced(html, "&quot;", "\"");
  return Replaced(html, "&amp;", "&");
}

std::string ConvertToFit1651(const std::string& html) {
  const std::size_t start = html.find("<body");
  const std::size_t end = start == std::string::npos ? start : html.find("</body", start + 5);
  const std::string prefix = start == std::string::npos ? "" : html.substr(0, start);
  std::string body = end == std::string::npos ? "" : html.substr(start + 5, end - start - 5);
  const std::string suffix = end == std::string::npos ? "" : html.substr(end + 6);
  body = Replaced(body, "  ", "&nbsp;&nbsp;");
  body = Replaced(body, "\n", "<br>\n");
  body = Replaced(body, "> ", ">&nbsp;");
  return prefix + "<body" + body + "</body" + suffix;
}

std::string VisibleCode(const std::string& html) {
  const std::size_t start = html.find('>', html.find("<pre")) + 1;
  std::string text = html.substr(start, html.find("</pre") - start);
  text = std::regex_replace(text, std::regex("<[^>]*>"), "");
  text = Replaced(text, "&nbsp;", " ");
  text = Replaced(text, "&#64;", "@");
  text = Replaced(text, "&lt;", "<");
  return Replaced(text, "&gt;", ">");
}

std::size_t CodeColors(const std::string& html) {
  static const std::regex kColor("<span style=\"color:(#[0-9a-f]{6})");
  std::set<std::string> colors;
  for (std::sregex_iterator at(html.begin(), html.end(), kColor), end; at != end; ++at)
    colors.insert((*at)[1]);
  return colors.size();
}

}  // namespace quill::oracle
