#pragma once
#include <cstdint>

namespace quill::platform::mac {

/// The number that macOS writes as four characters, such as 'GURL'. Spelt as a function because the
/// value of a multi-character literal is up to the compiler.
constexpr std::uint32_t FourChars(const char (&text)[5]) {
  std::uint32_t code = 0;
  for (int i = 0; i < 4; ++i) code = code << 8 | static_cast<unsigned char>(text[i]);
  return code;
}

}  // namespace quill::platform::mac
