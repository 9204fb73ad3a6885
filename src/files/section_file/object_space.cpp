#include "files/section_file/object_space.h"

#include <algorithm>
#include <string>

#include "files/section_file/checksums.h"
#include "files/section_file/file_node.h"

namespace quill::section_file {
namespace {

/// How many objects of the space refer to this one.
std::uint8_t ReferenceCount(const ObjectSpace& space, const ExtendedGuid& id) {
  return static_cast<std::uint8_t>(std::ranges::count_if(space.objects, [&](const Object& object) {
    return std::ranges::find(object.properties.objects(), id) != object.properties.objects().end();
  }));
}

/// ObjectDeclaration2RefCountFND, or its form for objects that never change, which has the digest of the
/// data.
std::string Declaration(const ObjectSpace& space, const Object& object, StoreFile& file, GlobalIdTable& ids) {
  constexpr std::uint32_t kReadOnly = 0x00100000;
  const std::string data = object.properties.Encode(ids);
  const int flags =
      (object.properties.objects().empty() ? 0 : 1) | (object.properties.spaces().empty() ? 0 : 2);
  ByteWriter body;
  body.U32(ids.CompactId(object.id)).U32(object.jcid).U8(static_cast<std::uint8_t>(flags));
  body.U8(ReferenceCount(space, object.id));
  const Chunk chunk = file.Place(data);
  if ((object.jcid & kReadOnly) == 0)
    return DataNode(NodeKind::ObjectDeclaration2RefCount, chunk, body.bytes());
  return DataNode(NodeKind::ReadOnlyObjectDeclaration2RefCount, chunk, body.Put(Guid{Md5(data)}).bytes());
}

/// The object group ([MS-ONESTORE], Object Group): the GUIDs first, then the objects.
Chunk PlaceObjectGroup(StoreFile& file, const ObjectSpace& space) {
  GlobalIdTable ids;
  std::vector<std::string> declarations;
  for (const Object& object : space.objects) declarations.push_back(Declaration(space, object, file, ids));
  FileNodeList list = file.NewList();
  list.Add(PlainNode(NodeKind::ObjectGroupStart, ByteWriter().Put(space.group).bytes()));
  ids.AddTo(list);
  for (const std::string& declaration : declarations) list.Add(declaration);
  list.Add(PlainNode(NodeKind::ObjectGroupEnd));
  return file.Place(list);
}

/// The list with the one revision manifest ([MS-ONESTORE] 2.1.9): depends on no other revision, is the active
/// one, is not encrypted.
Chunk PlaceRevisions(StoreFile& file, const ObjectSpace& space) {
  constexpr std::uint32_t kActive = 1;
  constexpr std::uint16_t kPlain = 0;
  const Chunk group = PlaceObjectGroup(file, space);
  GlobalIdTable ids;
  for (const Root& root : space.roots) ids.CompactId(root.object);
  FileNodeList list = file.NewList();
  list.Add(PlainNode(NodeKind::RevisionManifestListStart, ByteWriter().Put(space.id).U32(0).bytes()));
  list.Add(PlainNode(NodeKind::RevisionManifestStart6,
                     ByteWriter().Put(space.revision).Put(ExtendedGuid{}).U32(kActive).U16(kPlain).bytes()));
  list.Add(ListNode(NodeKind::ObjectGroupListReference, group, ByteWriter().Put(space.group).bytes()));
  ids.AddTo(list);
  for (const Root& root : space.roots)
    list.Add(PlainNode(NodeKind::RootObjectReference3,
                       ByteWriter().Put(root.object).U32(static_cast<std::uint32_t>(root.role)).bytes()));
  list.Add(PlainNode(NodeKind::RevisionManifestEnd));
  return file.Place(list);
}

}  // namespace

Chunk PlaceObjectSpace(StoreFile& file, const ObjectSpace& space) {
  const Chunk revisions = PlaceRevisions(file, space);
  FileNodeList list = file.NewList();
  list.Add(PlainNode(NodeKind::ObjectSpaceManifestListStart, ByteWriter().Put(space.id).bytes()));
  list.Add(ListNode(NodeKind::RevisionManifestListReference, revisions));
  return file.Place(list);
}

}  // namespace quill::section_file
