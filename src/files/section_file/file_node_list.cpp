#include "files/section_file/file_node_list.h"

#include "files/section_file/chunk.h"

namespace quill::section_file {

void FileNodeList::Add(std::string_view node) {
  m_nodes += node;
  ++m_count;
}

std::string FileNodeList::Fragment() const {
  constexpr std::uint64_t kHeaderMagic = 0xA4567AB1F5F7F4C4;
  constexpr std::uint64_t kFooterMagic = 0x8BC215C38233BA4B;
  constexpr std::uint32_t kFirstOfItsList = 0;
  ByteWriter fragment;
  fragment.U64(kHeaderMagic).U32(m_number).U32(kFirstOfItsList).Put(m_nodes);
  return PutReference64x32(fragment, kNowhere).U64(kFooterMagic).bytes();
}

}  // namespace quill::section_file
