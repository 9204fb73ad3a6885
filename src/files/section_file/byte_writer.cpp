#include "files/section_file/byte_writer.h"

namespace quill::section_file {

ByteWriter& ByteWriter::Put(std::string_view bytes) {
  m_bytes.append(bytes);
  return *this;
}

ByteWriter& ByteWriter::Put(const Guid& guid) {
  m_bytes.append(guid.bytes.begin(), guid.bytes.end());
  return *this;
}

ByteWriter& ByteWriter::Zeros(std::size_t count) {
  m_bytes.append(count, '\0');
  return *this;
}

ByteWriter& ByteWriter::Number(std::uint64_t value, int size) {
  for (int i = 0; i < size; ++i) m_bytes.push_back(static_cast<char>(value >> (8 * i) & 0xFF));
  return *this;
}

}  // namespace quill::section_file
