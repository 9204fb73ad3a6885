#include "content/unicode_text.h"

#include <cstring>

#include "content/byte_scan.h"

namespace quill::content {
namespace {

constexpr char32_t kReplacement = 0xFFFD;

bool IsSurrogate(char32_t code) {
  return code >= 0xD800 && code <= 0xDFFF;
}

unsigned ByteAt(std::string_view text, std::size_t at) {
  return static_cast<unsigned char>(text[at]);
}

bool IsContinuation(std::string_view text, std::size_t at) {
  return at < text.size() && (ByteAt(text, at) & 0xC0) == 0x80;
}

/// How many bytes from `at` on are ASCII, counted in steps of 16.
std::size_t AsciiRun(std::string_view text, std::size_t at) {
  const std::size_t begin = at;
  for (; text.size() - at >= sizeof(ByteLanes); at += sizeof(ByteLanes)) {
    const auto words = std::bit_cast<WordPair>(LoadLanes(text.data() + at));
    if (((words[0] | words[1]) & 0x8080808080808080u) != 0) break;
  }
  return at - begin;
}

template <class Keep>
std::string_view Trim(std::string_view text, Keep isTrimmed) {
  while (!text.empty()) {
    const DecodedChar first = DecodeUtf8(text, 0);
    if (first.length == 0 || !isTrimmed(first.code)) break;
    text.remove_prefix(first.length);
  }
  while (!text.empty()) {
    std::size_t at = text.size() - 1;
    while (at > 0 && text.size() - at < 4 && IsContinuation(text, at)) --at;
    const DecodedChar last = DecodeUtf8(text, at);
    if (last.length != text.size() - at || !isTrimmed(last.code)) break;
    text.remove_suffix(last.length);
  }
  return text;
}

}  // namespace

DecodedChar DecodeUtf8(std::string_view text, std::size_t at) {
  if (at >= text.size()) return {};
  const unsigned first = ByteAt(text, at);
  if (first < 0x80) return {first, 1};
  if (first < 0xC2 || first > 0xF4 || !IsContinuation(text, at + 1)) return {};
  const unsigned second = ByteAt(text, at + 1) & 0x3F;
  if (first < 0xE0) return {(first & 0x1F) << 6 | second, 2};
  if (!IsContinuation(text, at + 2)) return {};
  const unsigned third = ByteAt(text, at + 2) & 0x3F;
  if (first < 0xF0) {
    const char32_t code = (first & 0x0F) << 12 | second << 6 | third;
    if (code < 0x800 || IsSurrogate(code)) return {};
    return {code, 3};
  }
  if (!IsContinuation(text, at + 3)) return {};
  const char32_t code = (first & 0x07) << 18 | second << 12 | third << 6 | (ByteAt(text, at + 3) & 0x3F);
  if (code < 0x10000 || code > 0x10FFFF) return {};
  return {code, 4};
}

void AppendUtf8(std::string& out, char32_t code) {
  if (code > 0x10FFFF || IsSurrogate(code)) code = kReplacement;
  if (code < 0x80) {
    out += static_cast<char>(code);
    return;
  }
  char bytes[4];
  std::size_t count = code < 0x800 ? 2 : code < 0x10000 ? 3 : 4;
  for (std::size_t i = count; i-- > 1; code >>= 6) bytes[i] = static_cast<char>(0x80 | (code & 0x3F));
  constexpr unsigned kLead[] = {0, 0, 0xC0, 0xE0, 0xF0};
  bytes[0] = static_cast<char>(kLead[count] | code);
  out.append(bytes, count);
}

bool IsValidUtf8(std::string_view text) {
  for (std::size_t at = 0; at < text.size();) {
    at += AsciiRun(text, at);
    if (at == text.size()) break;
    const DecodedChar c = DecodeUtf8(text, at);
    if (c.length == 0) return false;
    at += c.length;
  }
  return true;
}

bool IsBlank(char32_t code) {
  return code == U' ' || code == U'\t' || code == 0xA0 || code == 0x1680 ||
         (code >= 0x2000 && code <= 0x200A) || code == 0x202F || code == 0x205F || code == 0x3000;
}

bool IsNewline(char32_t code) {
  return (code >= 0x0A && code <= 0x0D) || code == 0x85 || code == 0x2028 || code == 0x2029;
}

std::string_view TrimBlanks(std::string_view text) {
  return Trim(text, IsBlank);
}

std::string_view TrimWhite(std::string_view text) {
  return Trim(text, [](char32_t code) { return IsBlank(code) || IsNewline(code); });
}

std::vector<std::string_view> SplitAtNewlines(std::string_view text) {
  std::vector<std::string_view> pieces;
  std::size_t begin = 0;
  for (std::size_t at = 0; at < text.size();) {
    const DecodedChar c = DecodeUtf8(text, at);
    if (c.length != 0 && IsNewline(c.code)) {
      pieces.push_back(text.substr(begin, at - begin));
      begin = at + c.length;
    }
    at += c.length == 0 ? 1 : c.length;
  }
  pieces.push_back(text.substr(begin));
  return pieces;
}

std::u16string ToUtf16(std::string_view text) {
  std::u16string units;
  units.reserve(text.size());
  for (std::size_t at = 0; at < text.size();) {
    const DecodedChar c = DecodeUtf8(text, at);
    at += c.length == 0 ? 1 : c.length;
    const char32_t code = c.length == 0 ? kReplacement : c.code;
    if (code < 0x10000) {
      units += static_cast<char16_t>(code);
    } else {
      units += static_cast<char16_t>(0xD7C0 + (code >> 10));
      units += static_cast<char16_t>(0xDC00 + (code & 0x3FF));
    }
  }
  return units;
}

std::string ToUtf8(std::u16string_view text) {
  std::string bytes;
  bytes.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    char32_t code = text[i];
    const bool isHigh = code >= 0xD800 && code <= 0xDBFF;
    if (isHigh && i + 1 < text.size() && text[i + 1] >= 0xDC00 && text[i + 1] <= 0xDFFF) {
      code = 0x10000 + ((code - 0xD800) << 10) + (text[++i] - 0xDC00u);
    }
    AppendUtf8(bytes, code);
  }
  return bytes;
}

}  // namespace quill::content
