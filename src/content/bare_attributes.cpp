#include "content/bare_attributes.h"

#include <array>
#include <initializer_list>

namespace quill::content {
namespace {

constexpr std::array<std::string_view, kBareAttributeCount> kNames = {
    "type",   "border", "cellpadding", "cellspacing", "valign",  "lang",   "width",
    "height", "alt",    "value",       "cols",        "rowspan", "colspan"};
static_assert(kNames[kAltOrder] == "alt");

bool EndsWithFolded(std::string_view text, std::string_view name) {
  if (text.size() < name.size()) return false;
  const char* at = text.data() + text.size();
  for (std::size_t i = name.size(); i-- > 0;) {
    // Setting bit 5 folds letters exactly: no other byte becomes one.
    if ((*--at | 0x20) != name[i]) return false;
  }
  return true;
}

int FirstThatEnds(std::string_view text, std::initializer_list<int> orders) {
  for (const int order : orders) {
    if (EndsWithFolded(text, kNames[static_cast<std::size_t>(order)])) return order;
  }
  return -1;
}

constexpr std::array<bool, 256> MakeValueEnds() {
  std::array<bool, 256> ends{};
  for (const char c : {' ', '\t', '\n', '\v', '\f', '\r', '>'}) ends[static_cast<unsigned char>(c)] = true;
  return ends;
}

constexpr std::array<bool, 256> kValueEnds = MakeValueEnds();

}  // namespace

int BareAttributeBefore(std::string_view text, std::size_t equals) {
  if (equals < 3) return -1;
  const std::string_view before = text.substr(0, equals);
  switch (before.back() | 0x20) {
    case 'e':
      return FirstThatEnds(before, {0, 9});
    case 'r':
      return FirstThatEnds(before, {1});
    case 'g':
      return FirstThatEnds(before, {2, 3, 5});
    case 'n':
      return FirstThatEnds(before, {4, 11, 12});
    case 'h':
      return FirstThatEnds(before, {6});
    case 't':
      return FirstThatEnds(before, {7, 8});
    case 's':
      return FirstThatEnds(before, {10});
    default:
      return -1;
  }
}

std::size_t FindValueEnd(std::string_view text, std::size_t from) {
  for (std::size_t at = from; at < text.size(); ++at) {
    if (kValueEnds[static_cast<unsigned char>(text[at])]) return at;
  }
  return std::string_view::npos;
}

}  // namespace quill::content
