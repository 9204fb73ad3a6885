// The parts of unicode_text.h that need a table or a library.
#include <unicode/bytestream.h>
#include <unicode/casemap.h>

#include <cstdint>
#include <limits>

#include "content/unicode_text.h"

namespace quill::content {
namespace {

int HexValue(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  return -1;
}

bool IsAsciiAlnum(char c) {
  return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

constexpr std::string_view kNeverEscaped = "!$&'()*+,-./:;=?@_~";

using CaseMapper = void (*)(const char*, std::uint32_t, icu::StringPiece, icu::ByteSink&, icu::Edits*,
                            UErrorCode&);

std::string MapCase(std::string_view text, CaseMapper map) {
  std::string result;
  result.reserve(text.size());
  icu::StringByteSink<std::string> sink(&result);
  UErrorCode error = U_ZERO_ERROR;
  map("", 0, icu::StringPiece(text.data(), static_cast<std::int32_t>(text.size())), sink, nullptr, error);
  return U_FAILURE(error) ? std::string(text) : result;
}

}  // namespace

std::string PercentUnescape(std::string_view text) {
  std::string bytes;
  bytes.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    const int high = text[i] == '%' && text.size() - i > 2 ? HexValue(text[i + 1]) : -1;
    const int low = high < 0 ? -1 : HexValue(text[i + 2]);
    if (low < 0) {
      bytes += text[i];
    } else {
      bytes += static_cast<char>(high << 4 | low);
      i += 2;
    }
  }
  return IsValidUtf8(bytes) ? bytes : std::string();
}

std::string PercentEscape(std::string_view text) {
  constexpr char kDigits[] = "0123456789ABCDEF";
  std::string escaped;
  escaped.reserve(text.size());
  for (const char c : text) {
    if (IsAsciiAlnum(c) || kNeverEscaped.find(c) != std::string_view::npos) {
      escaped += c;
    } else {
      const unsigned byte = static_cast<unsigned char>(c);
      escaped += '%';
      escaped += kDigits[byte >> 4];
      escaped += kDigits[byte & 15];
    }
  }
  return escaped;
}

std::int64_t LeadingInteger(std::string_view text) {
  text = TrimWhite(text);
  const bool negative = !text.empty() && text.front() == '-';
  if (negative || (!text.empty() && text.front() == '+')) text.remove_prefix(1);
  // Counted downwards, where the range reaches one further.
  std::int64_t value = 0;
  constexpr std::int64_t kLowest = std::numeric_limits<std::int64_t>::min();
  for (const char c : text) {
    if (c < '0' || c > '9') break;
    const std::int64_t digit = c - '0';
    value = value < (kLowest + digit) / 10 ? kLowest : value * 10 - digit;
  }
  if (negative) return value;
  return value == kLowest ? std::numeric_limits<std::int64_t>::max() : -value;
}

std::string ToLower(std::string_view text) {
  return MapCase(text, &icu::CaseMap::utf8ToLower);
}

std::string ToUpper(std::string_view text) {
  return MapCase(text, &icu::CaseMap::utf8ToUpper);
}

}  // namespace quill::content
