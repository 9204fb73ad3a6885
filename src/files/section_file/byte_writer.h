#pragma once
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "files/section_file/guid.h"

namespace quill::section_file {

/// Puts values one behind the other. Numbers have their lowest byte first, as everywhere in a revision store
/// ([MS-ONESTORE] 2.2).
class ByteWriter {
 public:
  ByteWriter& U8(std::uint8_t value) { return Number(value, 1); }
  ByteWriter& U16(std::uint16_t value) { return Number(value, 2); }
  ByteWriter& U32(std::uint32_t value) { return Number(value, 4); }
  ByteWriter& U64(std::uint64_t value) { return Number(value, 8); }
  ByteWriter& Put(std::string_view bytes);
  ByteWriter& Put(const Guid& guid);
  ByteWriter& Put(const ExtendedGuid& id) { return Put(id.guid).U32(id.n); }
  ByteWriter& Zeros(std::size_t count);

  /// Zeros up to the next multiple of 8.
  ByteWriter& Align() { return Zeros((8 - m_bytes.size() % 8) % 8); }

  const std::string& bytes() const { return m_bytes; }

 private:
  ByteWriter& Number(std::uint64_t value, int size);

  std::string m_bytes;
};

}  // namespace quill::section_file
