#pragma once
#include <cstdint>
#include <string>
#include <string_view>

namespace quill::test {

/// CRC-32C, as a division with the highest bit first.
std::uint32_t Crc32c(std::string_view bytes);

/// The 16 bytes of the MD5 digest, with its constants taken from the sine.
std::string Md5Digest(std::string_view bytes);

}  // namespace quill::test
