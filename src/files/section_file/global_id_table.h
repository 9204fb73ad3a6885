#pragma once
#include <cstdint>
#include <vector>

#include "files/section_file/file_node_list.h"
#include "files/section_file/guid.h"

namespace quill::section_file {

/// The GUIDs that the short identifiers of one object group stand for ([MS-ONESTORE] 2.1.3).
class GlobalIdTable {
 public:
  /// The identifier as a CompactID ([MS-ONESTORE] 2.2.2). Its GUID joins the table. Throws std::out_of_range
  /// for a number that does not fit into 8 bits.
  std::uint32_t CompactId(const ExtendedGuid& id);

  /// Adds the table's nodes to a list, which must happen before any node with such an identifier.
  void AddTo(FileNodeList& list) const;

 private:
  std::vector<Guid> m_guids;
};

}  // namespace quill::section_file
