#pragma once
#include <array>
#include <cstdint>
#include <string_view>

namespace quill::section_file {

/// The cyclic redundancy check of a `.one` file ([MS-ONESTORE] 2.1.2): CRC-32C, as RFC 3309 describes it.
std::uint32_t Crc(std::string_view bytes);

/// The MD5 digest (RFC 1321), which a read-only object carries ([MS-ONESTORE],
/// ReadOnlyObjectDeclaration2RefCountFND). It finds equal contents and
/// protects nothing.
std::array<std::uint8_t, 16> Md5(std::string_view bytes);

}  // namespace quill::section_file
