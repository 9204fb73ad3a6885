#include "ui/windows/syntax/code_excerpt.h"

#include <algorithm>

namespace quill::ui {
namespace {

bool IsInsideCharacter(char byte) {
  return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
}

}  // namespace

CodeExcerpt ExcerptOfCode(std::string_view code) {
  std::size_t end = 0;
  for (int line = 0; line < kExcerptLines && end < code.size(); ++line) {
    const std::size_t next = code.find_first_of("\r\n", end);
    if (next == std::string_view::npos) {
      end = code.size();
    } else {
      end = next + (code.substr(next, 2) == "\r\n" ? 2 : 1);
    }
  }
  if (end > kExcerptBytes) {
    end = kExcerptBytes;
    while (end > 0 && IsInsideCharacter(code[end])) --end;
  }
  return {std::string(code.substr(0, end)), end < code.size()};
}

std::string HtmlForPreview(std::string_view html) {
  static constexpr std::string_view kBreak = "<br>\n";
  const std::size_t body = std::min(html.find("<body"), html.size());
  const std::size_t inside = html.find('>', body);
  if (inside == std::string_view::npos) return std::string(html);
  std::string shown = "<html><body>";
  for (std::size_t at = inside + 1; at < html.size();) {
    const std::size_t next = std::min(html.find(kBreak, at), html.size());
    shown += html.substr(at, next - at);
    if (next == html.size()) break;
    shown += "<br>";
    at = next + kBreak.size();
  }
  return shown;
}

}  // namespace quill::ui
