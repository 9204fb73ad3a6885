#include "content/text_between.h"

#include "content/find_text.h"

namespace quill::content {

std::string_view TextBetween(std::string_view text, std::string_view start, std::string_view end) {
  const std::size_t found = FindText(text, start);
  if (found == std::string_view::npos) return {};
  const std::string_view rest = text.substr(found + start.size());
  if (end.empty()) return rest;
  const std::size_t length = FindText(rest, end);
  return length == std::string_view::npos ? std::string_view() : rest.substr(0, length);
}

std::string StripFragmentMarkers(std::string_view text) {
  return ReplaceAll(ReplaceAll(text, kStartMarker, ""), kEndMarker, "");
}

FragmentParts CutFragment(std::string_view html) {
  return {TextBetween(html, "", kStartMarker), TextBetween(html, kStartMarker, kEndMarker),
          TextBetween(html, kEndMarker, "")};
}

std::string JoinFragment(std::string_view head, std::string_view fragment, std::string_view tail) {
  std::string html;
  html.reserve(head.size() + kStartMarker.size() + fragment.size() + kEndMarker.size() + tail.size());
  html.append(head).append(kStartMarker).append(fragment).append(kEndMarker).append(tail);
  return html;
}

}  // namespace quill::content
