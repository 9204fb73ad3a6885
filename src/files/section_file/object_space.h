#pragma once
#include <cstdint>
#include <vector>

#include "files/section_file/property_set.h"
#include "files/section_file/store_file.h"

namespace quill::section_file {

/// One object: what kind of object it is says its JCID ([MS-ONESTORE] 2.6.14).
struct Object {
  ExtendedGuid id;
  std::uint32_t jcid = 0;
  PropertySet properties;
};

/// An object that readers begin with, and what they find there ([MS-ONE], Root Objects).
struct Root {
  enum class Role : std::uint32_t { Contents = 1, Metadata = 2, RevisionMetadata = 4 };

  Role role = Role::Contents;
  ExtendedGuid object;
};

/// The objects of a section, or those of a page, in their only revision. An object stands behind those that
/// it refers to.
struct ObjectSpace {
  ExtendedGuid id;
  ExtendedGuid revision;
  ExtendedGuid group;  ///< names the group that the revision's objects are declared in
  std::vector<Object> objects;
  std::vector<Root> roots;
};

/// Places an object space and returns where its manifest list is.
Chunk PlaceObjectSpace(StoreFile& file, const ObjectSpace& space);

}  // namespace quill::section_file
