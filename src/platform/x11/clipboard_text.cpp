#include "platform/x11/clipboard_text.h"

#include <algorithm>

namespace quill::platform::x11 {
namespace {

constexpr char32_t kReplacement = 0xFFFD;

/// Bytes looked at when there is no mark: markup begins with ASCII, so every second byte is NUL.
constexpr std::size_t kSample = 64;

void AppendUtf8(std::string& out, char32_t c) {
  const auto tail = [&](int shift) { out += static_cast<char>(0x80 | ((c >> shift) & 0x3F)); };
  if (c < 0x80) {
    out += static_cast<char>(c);
  } else if (c < 0x800) {
    out += static_cast<char>(0xC0 | (c >> 6));
    tail(0);
  } else if (c < 0x10000) {
    out += static_cast<char>(0xE0 | (c >> 12));
    tail(6), tail(0);
  } else {
    out += static_cast<char>(0xF0 | (c >> 18));
    tail(12), tail(6), tail(0);
  }
}

enum class Order { Little, Big };

std::string Utf16ToUtf8(std::string_view bytes, Order order) {
  const auto unit = [&](std::size_t i) -> char32_t {
    const auto first = static_cast<unsigned char>(bytes[i]);
    const auto second = static_cast<unsigned char>(bytes[i + 1]);
    return order == Order::Little ? first | second << 8 : first << 8 | second;
  };
  const auto isHigh = [](char32_t u) { return u >= 0xD800 && u < 0xDC00; };
  const auto isLow = [](char32_t u) { return u >= 0xDC00 && u < 0xE000; };
  std::string out;
  out.reserve(bytes.size());
  for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) {
    const char32_t u = unit(i);
    if (isHigh(u) && i + 3 < bytes.size() && isLow(unit(i + 2))) {
      AppendUtf8(out, 0x10000 + ((u - 0xD800) << 10) + (unit(i + 2) - 0xDC00));
      i += 2;
    } else {
      AppendUtf8(out, isHigh(u) || isLow(u) ? kReplacement : u);
    }
  }
  return out;
}

/// The share of NUL bytes at even or odd places tells the order where there is no mark.
bool LooksLikeUtf16(std::string_view bytes, Order order) {
  const std::size_t sample = std::min(bytes.size() & ~std::size_t{1}, kSample);
  std::size_t nul = 0;
  for (std::size_t i = order == Order::Little ? 1 : 0; i < sample; i += 2) nul += bytes[i] == '\0';
  return sample >= 2 && nul * 4 > sample;
}

}  // namespace

std::string HtmlBytesToUtf8(std::string_view bytes) {
  using std::string_view_literals::operator""sv;
  std::string out;
  if (bytes.substr(0, 3) == "\xEF\xBB\xBF"sv) {
    out = bytes.substr(3);
  } else if (bytes.substr(0, 2) == "\xFF\xFE"sv) {
    out = Utf16ToUtf8(bytes.substr(2), Order::Little);
  } else if (bytes.substr(0, 2) == "\xFE\xFF"sv) {
    out = Utf16ToUtf8(bytes.substr(2), Order::Big);
  } else if (LooksLikeUtf16(bytes, Order::Little)) {
    out = Utf16ToUtf8(bytes, Order::Little);
  } else if (LooksLikeUtf16(bytes, Order::Big)) {
    out = Utf16ToUtf8(bytes, Order::Big);
  } else {
    out = bytes;
  }
  while (!out.empty() && out.back() == '\0') out.pop_back();
  return out;
}

std::string Latin1ToUtf8(std::string_view bytes) {
  std::string out;
  for (const char c : bytes) AppendUtf8(out, static_cast<unsigned char>(c));
  return out;
}

bool IsAscii(std::string_view text) {
  return std::all_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

}  // namespace quill::platform::x11
