#include "content/xml_chars.h"

#include <algorithm>
#include <array>
#include <iterator>

#include "content/byte_scan.h"
#include "content/unicode_text.h"

namespace quill::content {
namespace {

struct Range {
  char32_t first;
  char32_t last;
};

// Above ASCII, in ascending order.
constexpr Range kNameStarts[] = {{0xC0, 0xD6},     {0xD8, 0xF6},     {0xF8, 0x2FF},    {0x370, 0x37D},
                                 {0x37F, 0x1FFF},  {0x200C, 0x200D}, {0x2070, 0x218F}, {0x2C00, 0x2FEF},
                                 {0x3001, 0xD7FF}, {0xF900, 0xFDCF}, {0xFDF0, 0xFFFD}, {0x10000, 0xEFFFF}};
constexpr Range kNameOthers[] = {{0xB7, 0xB7}, {0x300, 0x36F}, {0x203F, 0x2040}};

template <std::size_t kCount>
bool IsIn(const Range (&ranges)[kCount], char32_t code) {
  const auto* const range = std::lower_bound(std::begin(ranges), std::end(ranges), code,
                                             [](const Range& r, char32_t c) { return r.last < c; });
  return range != std::end(ranges) && range->first <= code;
}

enum NameClass : unsigned char { kNoName, kNameOther, kNameStart };

constexpr std::array<NameClass, 256> MakeNameClasses() {
  std::array<NameClass, 256> classes{};
  for (std::size_t c = 'a'; c <= 'z'; ++c) classes[c] = classes[c - 32] = kNameStart;
  for (std::size_t c = '0'; c <= '9'; ++c) classes[c] = kNameOther;
  classes['-'] = classes['.'] = kNameOther;
  classes['_'] = classes[':'] = kNameStart;
  return classes;
}

constexpr std::array<NameClass, 256> kNameClasses = MakeNameClasses();

/// The class of a byte that is a character of its own; `kNoName` for the bytes of longer ones.
NameClass ClassOfByte(char c) {
  return kNameClasses[static_cast<unsigned char>(c)];
}

NameClass ClassOf(char32_t code) {
  if (code < 128) return kNameClasses[code];
  if (IsIn(kNameStarts, code)) return kNameStart;
  return IsIn(kNameOthers, code) ? kNameOther : kNoName;
}

bool IsPlain(char c) {
  return static_cast<unsigned char>(c) < 0x80 && (c >= ' ' || IsXmlSpace(c));
}

/// The first byte at or after `at` that is not an ASCII character allowed by XML.
std::size_t SkipPlain(std::string_view text, std::size_t at) {
  for (; text.size() - at >= sizeof(ByteLanes); at += sizeof(ByteLanes)) {
    const ByteLanes lanes = LoadLanes(text.data() + at);
    // As signed numbers, the bytes beyond ASCII are below all others.
    const ByteLanes special = (ByteLanes)((SignedLanes)lanes < 0x20);
    const ByteLanes white =
        (ByteLanes)(lanes == '\n') | (ByteLanes)(lanes == '\r') | (ByteLanes)(lanes == '\t');
    const auto words = (WordPair)(special & ~white);
    if ((words[0] | words[1]) != 0) return at + FirstSetByte(words);
  }
  while (at < text.size() && IsPlain(text[at])) ++at;
  return at;
}

/// The length of a two- or three-byte character whose lead byte alone tells that it is allowed; 0 for others.
std::size_t CommonSequence(std::string_view text, std::size_t at) {
  const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[at + i]); };
  if (text.size() - at < 3) return 0;
  if (byte(0) >= 0xC2 && byte(0) <= 0xDF) return (byte(1) & 0xC0) == 0x80 ? 2 : 0;
  const bool isCommon =
      byte(0) >= 0xE1 && byte(0) <= 0xEC && (byte(1) & 0xC0) == 0x80 && (byte(2) & 0xC0) == 0x80;
  return isCommon ? 3 : 0;
}

}  // namespace

bool IsXmlChar(char32_t code) {
  if (code < 0x20) return code == '\t' || code == '\n' || code == '\r';
  return code <= 0xD7FF || (code >= 0xE000 && code <= 0xFFFD) || (code >= 0x10000 && code <= 0x10FFFF);
}

std::size_t FindForbiddenChar(std::string_view text) {
  for (std::size_t at = SkipPlain(text, 0); at < text.size(); at = SkipPlain(text, at)) {
    // Characters beyond ASCII come in runs.
    do {
      std::size_t length = CommonSequence(text, at);
      if (length == 0) {
        const DecodedChar c = DecodeUtf8(text, at);
        if (c.length == 0 || !IsXmlChar(c.code)) return at;
        length = c.length;
      }
      at += length;
    } while (at < text.size() && static_cast<unsigned char>(text[at]) >= 0x80);
  }
  return std::string_view::npos;
}

std::size_t FindNameEnd(std::string_view text, std::size_t from) {
  std::size_t at = from;
  NameClass least = kNameStart;
  for (;; least = kNameOther) {
    const DecodedChar c = DecodeUtf8(text, at);
    if (c.length == 0 || ClassOf(c.code) < least) return at;
    at += c.length;
  }
}

bool IsQualifiedName(std::string_view name) {
  const std::size_t first = name.find(':');
  if (first == std::string_view::npos || first == 0) return true;
  const std::size_t second = name.find(':', first + 1);
  if (second == std::string_view::npos || second + 1 == name.size()) return true;
  const std::string_view middle = name.substr(first + 1, second - first - 1);
  const bool middleIsName = !middle.empty() && FindNameEnd(middle, 0) == middle.size();
  return !middleIsName || FindNameEnd(name, second + 1) > second + 1;
}

std::size_t FindQualifiedNameEnd(std::string_view text, std::size_t from) {
  if (from >= text.size()) return from;
  std::size_t at = from;
  if (ClassOfByte(text[at]) == kNameStart) {
    while (at < text.size() && ClassOfByte(text[at]) != kNoName && text[at] != ':') ++at;
  }
  const bool isSimple = at == text.size() || (text[at] != ':' && static_cast<unsigned char>(text[at]) < 0x80);
  if (isSimple) return at;
  const std::size_t end = FindNameEnd(text, from);
  return IsQualifiedName(text.substr(from, end - from)) ? end : from;
}

}  // namespace quill::content
