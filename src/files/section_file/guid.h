#pragma once
#include <array>
#include <compare>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace quill::section_file {

/// A GUID as it lies in the file: its first three fields with the lowest byte first ([MS-DTYP] 2.3.4.2).
struct Guid {
  std::array<std::uint8_t, 16> bytes{};

  auto operator<=>(const Guid&) const = default;
};

/// A GUID and a number; the pair of zeros stands for none ([MS-ONESTORE] 2.2.1).
struct ExtendedGuid {
  Guid guid;
  std::uint32_t n = 0;

  auto operator<=>(const ExtendedGuid&) const = default;
};

/// The GUID of a text "8-4-4-4-12" in upper case. A text of another form does not compile.
consteval Guid MakeGuid(std::string_view text) {
  constexpr std::array<std::size_t, 16> kPlaces = {6, 4, 2, 0, 11, 9, 16, 14, 19, 21, 24, 26, 28, 30, 32, 34};
  const auto digit = [](char c) -> std::uint8_t {
    if (c >= '0' && c <= '9') return static_cast<std::uint8_t>(c - '0');
    if (c >= 'A' && c <= 'F') return static_cast<std::uint8_t>(c - 'A' + 10);
    throw "not a digit";
  };
  if (text.size() != 36) throw "not a GUID";
  Guid result;
  for (std::size_t i = 0; i < 16; ++i)
    result.bytes[i] = static_cast<std::uint8_t>(digit(text[kPlaces[i]]) * 16 + digit(text[kPlaces[i] + 1]));
  return result;
}

}  // namespace quill::section_file
