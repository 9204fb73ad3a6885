#pragma once
#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "base/result.h"

namespace quill::test {

struct StoredProperty {
  std::uint64_t number = 0;              ///< of a flag and of a number of up to 8 bytes
  std::string bytes;                     ///< of a property with a length
  std::vector<std::string> identifiers;  ///< of references, each the GUID and the number as 20 bytes
};

struct StoredObject {
  std::uint32_t kind = 0;
  unsigned references = 0;  ///< as declared
  std::map<std::uint32_t, StoredProperty> properties;
};

struct StoredSpace {
  std::map<std::string, StoredObject> objects;
  std::map<std::uint32_t, std::string> roots;  ///< by their role
};

struct RevisionStore {
  std::string rootSpace;
  std::map<std::string, StoredSpace> spaces;
};

/// Reads a section file strictly, knowing nothing of how ours is made: each space has one revision. Fails
/// with the first thing that does not fit: a mark, a count, a reference that leaves the file or its table,
/// chunks that overlap, an object that is referred to before it is declared, a wrong sum, bytes that belong
/// to nothing.
Result<RevisionStore> ReadRevisionStore(std::string_view file);

}  // namespace quill::test
