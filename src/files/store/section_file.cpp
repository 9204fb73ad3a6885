#include "files/store/section_file.h"

#include <array>
#include <fstream>
#include <string_view>

namespace quill::files {
namespace {

constexpr std::size_t kHeaderSize = 64;
constexpr std::size_t kFormatAt = 48;
/// {638DE92F-A6D4-4BC1-9A36-B3FC2511A5B7} as it stands on disk.
constexpr std::string_view kAlternativePackaging =
    "\x2F\xE9\x8D\x63\xD4\xA6\xC1\x4B\x9A\x36\xB3\xFC\x25\x11\xA5\xB7";

}  // namespace

bool IsMacSupportedOneFile(const std::filesystem::path& file) {
  std::error_code error;
  if (!std::filesystem::is_regular_file(file, error)) return false;  // a pipe would be waited for
  std::ifstream stream(file, std::ios::binary);
  std::array<char, kHeaderSize> header{};
  if (!stream.read(header.data(), header.size())) return false;
  const std::string_view bytes(header.data(), header.size());
  return bytes.substr(kFormatAt) != kAlternativePackaging;
}

}  // namespace quill::files
