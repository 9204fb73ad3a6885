#include "practice/service/graph_ids.h"

#include <fmt/format.h>

#include <array>
#include <charconv>
#include <cstddef>
#include <cstdint>

#include "content/unicode_text.h"

namespace quill::practice {
namespace {

constexpr std::size_t kBytes = 16;
using Bytes = std::array<std::uint8_t, kBytes>;

/// The middle number of the ids of each kind.
constexpr int KindNumber(IdKind kind) {
  constexpr int kNumbers[] = {101, 174, 248};
  return kNumbers[static_cast<int>(kind)];
}

/// Turned over with a mask of the kind's, so that nobody can take an id for a GUID of a link; twice is as
/// before.
void Scramble(IdKind kind, Bytes& bytes) {
  std::uint32_t state = 0x9E3779B9u * static_cast<std::uint32_t>(KindNumber(kind));
  for (std::uint8_t& byte : bytes) {
    state = state * 1664525u + 1013904223u;
    byte = static_cast<std::uint8_t>(byte ^ (state >> 24));
  }
}

/// The bytes of 32 hexadecimal digits, "-" and braces between them not looked at.
std::optional<Bytes> BytesOf(std::string_view text) {
  std::string digits;
  for (const char c : text) {
    if (c != '-' && c != '{' && c != '}') digits += c;
  }
  if (digits.size() != 2 * kBytes) return std::nullopt;
  Bytes bytes{};
  for (std::size_t i = 0; i < kBytes; ++i) {
    const char* from = digits.data() + 2 * i;
    if (std::from_chars(from, from + 2, bytes[i], 16).ptr != from + 2) return std::nullopt;
  }
  return bytes;
}

std::string HexOf(const Bytes& bytes) {
  std::string hex;
  for (const std::uint8_t byte : bytes) hex += fmt::format("{:02x}", byte);
  return hex;
}

/// A short check at the end, so that a changed id is told from a real one.
std::uint16_t Check(std::string_view text) {
  std::uint32_t sum = 2166136261u;
  for (const char c : text) sum = (sum ^ static_cast<std::uint8_t>(c)) * 16777619u;
  return static_cast<std::uint16_t>(sum ^ (sum >> 16));
}

}  // namespace

std::string GraphId(IdKind kind, std::string_view guid, std::string_view accountId) {
  Bytes bytes = BytesOf(guid).value_or(Bytes{});
  Scramble(kind, bytes);
  const std::string start =
      fmt::format("0-{}!{}-{}", HexOf(bytes), KindNumber(kind), content::ToUpper(accountId));
  return fmt::format("{}!s{:04x}", start, Check(start));
}

std::optional<std::string> GuidOfGraphId(IdKind kind, std::string_view id) {
  const std::size_t last = id.rfind("!s");
  if (!id.starts_with("0-") || last == std::string_view::npos || last < 2 + 2 * kBytes) return std::nullopt;
  const std::string_view start = id.substr(0, last);
  const std::string_view rest = start.substr(2 + 2 * kBytes);
  if (!rest.starts_with(fmt::format("!{}-", KindNumber(kind)))) return std::nullopt;
  if (id.substr(last + 2) != fmt::format("{:04x}", Check(start))) return std::nullopt;
  std::optional<Bytes> bytes = BytesOf(start.substr(2, 2 * kBytes));
  if (!bytes) return std::nullopt;
  Scramble(kind, *bytes);
  const std::string hex = content::ToUpper(HexOf(*bytes));
  return fmt::format("{{{}-{}-{}-{}-{}}}", hex.substr(0, 8), hex.substr(8, 4), hex.substr(12, 4),
                     hex.substr(16, 4), hex.substr(20));
}

std::string_view BareGuid(std::string_view guid) {
  if (guid.starts_with('{')) guid.remove_prefix(1);
  if (guid.ends_with('}')) guid.remove_suffix(1);
  return guid;
}

}  // namespace quill::practice
