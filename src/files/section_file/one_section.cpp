#include "files/section_file/one_section.h"

#include "files/section_file/a4_page.h"
#include "files/section_file/file_node.h"
#include "files/section_file/fixed_values.h"
#include "files/section_file/property_ids.h"

namespace quill::section_file {
namespace {

constexpr ExtendedGuid kSection{kSectionObjects, 1};
constexpr ExtendedGuid kSeries{kSectionObjects, 2};
constexpr ExtendedGuid kSectionMetadata{kSectionObjects, 3};
constexpr ExtendedGuid kPageMetadataCopy{kSectionObjects, 4};

PropertySet Series() {
  PropertySet series;
  series.Data(property::kNotebookManagementEntityGuid, kPageEntityGuid);
  series.U64(property::kTopologyCreationTimeStamp, kFileTime);
  series.Objects(property::kMetaDataObjectsAboveGraphSpace, {kPageMetadataCopy});
  return series.Spaces(property::kChildGraphSpaceElementNodes, {kPageSpace});
}

PropertySet Section() {
  PropertySet section;
  section.Data(property::kNotebookManagementEntityGuid, kSectionEntityGuid);
  section.U64(property::kTopologyCreationTimeStamp, kFileTime);
  return section.Objects(property::kElementChildNodes, {kSeries});
}

/// The section itself, with its one page ([MS-ONE], Section Object Space).
ObjectSpace SectionSpace() {
  ObjectSpace space{
      .id = kSectionSpace, .revision = kSectionRevision, .group = kSectionGroup, .objects = {}, .roots = {}};
  space.objects = {
      {kPageMetadataCopy, jcid::kPageMetadata, PageMetadata()},
      {kSeries, jcid::kPageSeries, Series()},
      {kSection, jcid::kSection, Section()},
      {kSectionMetadata, jcid::kSectionMetadata, PropertySet().Text(property::kSectionDisplayName, u"a4")},
  };
  space.roots = {{Root::Role::Contents, kSection}, {Root::Role::Metadata, kSectionMetadata}};
  return space;
}

}  // namespace

std::string OneSection() {
  StoreFile file;
  FileNodeList root = file.NewList();
  root.Add(PlainNode(NodeKind::ObjectSpaceManifestRoot, ByteWriter().Put(kSectionSpace).bytes()));
  const Chunk page = PlaceObjectSpace(file, A4Page());
  const Chunk section = PlaceObjectSpace(file, SectionSpace());
  const auto addSpace = [&](const Chunk& manifests, const ExtendedGuid& space) {
    root.Add(
        ListNode(NodeKind::ObjectSpaceManifestListReference, manifests, ByteWriter().Put(space).bytes()));
  };
  addSpace(section, kSectionSpace);
  addSpace(page, kPageSpace);
  return file.Finish(file.Place(root), {.file = kFileGuid,
                                        .version = kFileVersionGuid,
                                        .denyReadVersion = kDenyReadVersionGuid,
                                        .name = u"a4.one"});
}

}  // namespace quill::section_file
