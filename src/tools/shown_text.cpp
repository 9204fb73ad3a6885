#include "tools/shown_text.h"

#include <algorithm>
#include <vector>

#include "content/find_text.h"

namespace quill::tools {
namespace {

/// One character of a shown text and how many bytes of the text it stands for.
struct ShownUnit {
  char shown;
  std::size_t length;
};

ShownUnit UnitAt(std::string_view text, std::size_t at) {
  const std::string_view rest = text.substr(at);
  if (rest.starts_with("\r\n")) return {'\n', 2};
  if (rest.starts_with("\r")) return {'\n', 1};
  if (rest.starts_with("\xC2\xA0")) return {' ', 2};
  // The line and the paragraph separator.
  if (rest.starts_with("\xE2\x80\xA8") || rest.starts_with("\xE2\x80\xA9")) return {'\n', 3};
  return {rest.front(), 1};
}

/// A shown text and, for each of its bytes and its end, the byte of the text where it comes from.
struct ShownMap {
  std::string shown;
  std::vector<std::size_t> origins;
};

ShownMap MapShown(std::string_view text) {
  ShownMap map;
  map.shown.reserve(text.size());
  map.origins.reserve(text.size() + 1);
  for (std::size_t at = 0; at < text.size();) {
    const ShownUnit unit = UnitAt(text, at);
    map.shown += unit.shown;
    map.origins.push_back(at);
    at += unit.length;
  }
  map.origins.push_back(text.size());
  return map;
}

}  // namespace

std::string ShownText(std::string_view text) {
  return MapShown(text).shown;
}

std::string CarryEditOver(std::string_view text, std::string_view edited) {
  const auto [shown, origins] = MapShown(text);
  const std::size_t shorter = std::min(shown.size(), edited.size());
  std::size_t before = 0;
  while (before < shorter && shown[before] == edited[before]) ++before;
  std::size_t after = 0;
  while (after < shorter - before && shown[shown.size() - 1 - after] == edited[edited.size() - 1 - after])
    ++after;

  std::string result(text.substr(0, origins[before]));
  const std::string_view typed = edited.substr(before, edited.size() - before - after);
  const bool hasReturns = text.find('\r') != std::string_view::npos;
  result += hasReturns ? content::ReplaceAll(typed, "\n", "\r\n") : std::string(typed);
  return result.append(text.substr(origins[shown.size() - after]));
}

}  // namespace quill::tools
