#include "files/section_file/file_node.h"

namespace quill::section_file {
namespace {

/// What a node's reference leads to, if it has one: the field BaseType.
enum class Target : std::uint32_t { None = 0, Data = 1, List = 2 };

/// References are written as two plain numbers of 32 bits. The compressed forms save bytes that a file of a
/// few kilobytes need not save.
constexpr std::uint32_t kPlaceIn32Bits = 1;
constexpr std::uint32_t kSizeIn32Bits = 0;

std::string Node(NodeKind kind, Target target, std::string_view contents) {
  constexpr std::uint32_t kHeaderSize = 4;
  constexpr std::uint32_t kReserved = 1;
  const bool refers = target != Target::None;
  const auto size = static_cast<std::uint32_t>(kHeaderSize + contents.size());
  const std::uint32_t header = static_cast<std::uint32_t>(kind) | size << 10 |
                               (refers ? kPlaceIn32Bits << 23 | kSizeIn32Bits << 25 : 0) |
                               static_cast<std::uint32_t>(target) << 27 | kReserved << 31;
  return ByteWriter().U32(header).Put(contents).bytes();
}

std::string NodeWithReference(NodeKind kind, Target target, const Chunk& chunk, std::string_view data) {
  ByteWriter contents;
  return Node(kind, target, PutReference32(contents, chunk).Put(data).bytes());
}

}  // namespace

std::string PlainNode(NodeKind kind, std::string_view data) {
  return Node(kind, Target::None, data);
}

std::string DataNode(NodeKind kind, const Chunk& chunk, std::string_view data) {
  return NodeWithReference(kind, Target::Data, chunk, data);
}

std::string ListNode(NodeKind kind, const Chunk& chunk, std::string_view data) {
  return NodeWithReference(kind, Target::List, chunk, data);
}

}  // namespace quill::section_file
