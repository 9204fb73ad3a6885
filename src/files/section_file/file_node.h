#pragma once
#include <cstdint>
#include <string>
#include <string_view>

#include "files/section_file/chunk.h"

namespace quill::section_file {

/// The kinds of node that a section without attachments and without a password needs ([MS-ONESTORE] 2.4.3 has
/// the list, 2.5 what each holds).
enum class NodeKind : std::uint16_t {
  ObjectSpaceManifestRoot = 0x004,
  ObjectSpaceManifestListReference = 0x008,
  ObjectSpaceManifestListStart = 0x00C,
  RevisionManifestListReference = 0x010,
  RevisionManifestListStart = 0x014,
  RevisionManifestEnd = 0x01C,
  RevisionManifestStart6 = 0x01E,
  GlobalIdTableStart2 = 0x022,
  GlobalIdTableEntry = 0x024,
  GlobalIdTableEnd = 0x028,
  RootObjectReference3 = 0x05A,
  ObjectDeclaration2RefCount = 0x0A4,
  ObjectGroupListReference = 0x0B0,
  ObjectGroupStart = 0x0B4,
  ObjectGroupEnd = 0x0B8,
  ReadOnlyObjectDeclaration2RefCount = 0x0C4,
};

/// The bytes of a node ([MS-ONESTORE] 2.4.3) with its own data only.
std::string PlainNode(NodeKind kind, std::string_view data = {});

/// One that begins with a reference to an object's data.
std::string DataNode(NodeKind kind, const Chunk& chunk, std::string_view data);

/// One that begins with a reference to another list of nodes.
std::string ListNode(NodeKind kind, const Chunk& chunk, std::string_view data = {});

}  // namespace quill::section_file
