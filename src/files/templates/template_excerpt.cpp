#include "files/templates/template_excerpt.h"

#include <algorithm>

#include "content/find_text.h"

namespace quill::files {
namespace {

constexpr std::string_view kPicture = "\"data:";

bool IsInsideCharacter(char byte) {
  return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
}

/// Cuts a text to this length, before the character or the tag that would be cut in two.
void Shorten(std::string& text, std::size_t length) {
  while (length > 0 && IsInsideCharacter(text[length])) --length;
  text.resize(length);
  const std::size_t open = text.rfind('<');
  if (open != std::string::npos && text.find('>', open) == std::string::npos) text.resize(open);
}

}  // namespace

TemplateExcerpt ExcerptOfTemplate(std::string_view html, const ExcerptLimits& limits) {
  TemplateExcerpt excerpt;
  std::size_t pictures = 0;
  std::size_t at = 0;
  while (at < html.size()) {
    const std::size_t room = limits.markup - std::min(limits.markup, excerpt.html.size() - pictures);
    const std::string_view near = html.substr(0, at + room + 1);
    const std::size_t picture = std::min(content::FindText(near, kPicture, at), near.size());
    excerpt.html.append(html.substr(at, picture - at));
    if (picture - at > room) {
      Shorten(excerpt.html, excerpt.html.size() - 1);
      excerpt.isPart = true;
      break;
    }
    if (picture == html.size()) break;
    const std::size_t quote = html.find('"', picture + 1);
    const std::size_t end = quote == std::string_view::npos ? html.size() : quote;
    if (pictures + (end - picture) <= limits.pictures) {
      pictures += end - picture;
      excerpt.html.append(html.substr(picture, end - picture));
    } else {
      excerpt.html += '"';
      excerpt.isPart = true;
    }
    at = end;
  }
  return excerpt;
}

}  // namespace quill::files
