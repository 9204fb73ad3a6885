#pragma once
#include <cstdint>
#include <string>
#include <string_view>

#include "files/section_file/chunk.h"
#include "files/section_file/file_node_list.h"
#include "files/section_file/guid.h"

namespace quill::section_file {

/// What tells one revision store file from others ([MS-ONESTORE] 2.3.1).
struct FileIdentity {
  Guid file;
  Guid version;
  Guid denyReadVersion;
  std::u16string_view name;  ///< the name that it is made under
};

/// A revision store file that grows at its end. Since references lead to what was placed before, the lists
/// are placed from the leaves up, the root last.
class StoreFile {
 public:
  StoreFile();

  /// A list with a number of its own.
  FileNodeList NewList() { return FileNodeList(m_nextList++); }

  /// Places an object's data at the next multiple of 8.
  Chunk Place(std::string_view bytes);

  /// Places a list that is complete, and notes it for the transaction log.
  Chunk Place(const FileNodeList& list);

  /// The whole file, with the transaction log behind everything and the header filled in.
  std::string Finish(const Chunk& rootList, const FileIdentity& identity);

 private:
  Chunk PlaceTransactionLog();

  std::uint32_t m_nextList = 0x10;
  ByteWriter m_bytes;
  ByteWriter m_transaction;
};

}  // namespace quill::section_file
