#include "content/base64.h"

#include <array>
#include <cstdint>

namespace quill::content {
namespace {

constexpr std::string_view kAlphabet = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
constexpr std::int8_t kNoDigit = -1;
constexpr std::int8_t kSkipped = -2;

constexpr std::array<std::int8_t, 256> MakeValues() {
  std::array<std::int8_t, 256> values{};
  values.fill(kNoDigit);
  for (std::size_t i = 0; i < kAlphabet.size(); ++i) {
    values[static_cast<unsigned char>(kAlphabet[i])] = static_cast<std::int8_t>(i);
  }
  for (const char c : {' ', '\t', '\r', '\n'}) values[static_cast<unsigned char>(c)] = kSkipped;
  return values;
}

constexpr std::array<std::int8_t, 256> kValues = MakeValues();

}  // namespace

std::string EncodeBase64(std::string_view bytes) {
  std::string text;
  text.reserve((bytes.size() + 2) / 3 * 4);
  const auto at = [&](std::size_t i) {
    return i < bytes.size() ? static_cast<std::uint32_t>(static_cast<unsigned char>(bytes[i])) : 0u;
  };
  for (std::size_t i = 0; i < bytes.size(); i += 3) {
    const std::uint32_t group = at(i) << 16 | at(i + 1) << 8 | at(i + 2);
    const std::size_t rest = bytes.size() - i;
    text += kAlphabet[group >> 18 & 63];
    text += kAlphabet[group >> 12 & 63];
    text += rest > 1 ? kAlphabet[group >> 6 & 63] : '=';
    text += rest > 2 ? kAlphabet[group & 63] : '=';
  }
  return text;
}

std::optional<std::string> DecodeBase64(std::string_view text) {
  std::string bytes;
  bytes.reserve(text.size() / 4 * 3);
  std::uint32_t group = 0;
  int digits = 0;
  int padding = 0;
  for (const char c : text) {
    const std::int8_t value = kValues[static_cast<unsigned char>(c)];
    if (value == kSkipped) continue;
    if (c == '=') {
      ++padding;
      continue;
    }
    if (value == kNoDigit || padding > 0) return std::nullopt;
    group = group << 6 | static_cast<std::uint32_t>(value);
    if (++digits < 4) continue;
    bytes += static_cast<char>(group >> 16 & 0xFF);
    bytes += static_cast<char>(group >> 8 & 0xFF);
    bytes += static_cast<char>(group & 0xFF);
    group = 0;
    digits = 0;
  }
  if (digits == 0) return padding == 0 ? std::optional(std::move(bytes)) : std::nullopt;
  if (digits == 1 || digits + padding != 4) return std::nullopt;
  bytes += static_cast<char>(group >> (digits == 2 ? 4 : 10) & 0xFF);
  if (digits == 3) bytes += static_cast<char>(group >> 2 & 0xFF);
  return bytes;
}

}  // namespace quill::content
