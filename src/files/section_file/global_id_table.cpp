#include "files/section_file/global_id_table.h"

#include <algorithm>
#include <stdexcept>

#include "files/section_file/file_node.h"

namespace quill::section_file {

std::uint32_t GlobalIdTable::CompactId(const ExtendedGuid& id) {
  if (id.n > 0xFF) throw std::out_of_range("an identifier's number is above 255");
  const auto found = std::find(m_guids.begin(), m_guids.end(), id.guid);
  const auto index = static_cast<std::uint32_t>(found - m_guids.begin());
  if (found == m_guids.end()) m_guids.push_back(id.guid);
  return id.n | index << 8;
}

void GlobalIdTable::AddTo(FileNodeList& list) const {
  list.Add(PlainNode(NodeKind::GlobalIdTableStart2));
  std::uint32_t index = 0;
  for (const Guid& guid : m_guids)
    list.Add(PlainNode(NodeKind::GlobalIdTableEntry, ByteWriter().U32(index++).Put(guid).bytes()));
  list.Add(PlainNode(NodeKind::GlobalIdTableEnd));
}

}  // namespace quill::section_file
