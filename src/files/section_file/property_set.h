#pragma once
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "files/section_file/global_id_table.h"
#include "files/section_file/guid.h"

namespace quill::section_file {

/// The properties of one object. Each is added with its identifier, which also says of what type it is
/// ([MS-ONESTORE] 2.6.6); a value of another type throws std::invalid_argument.
class PropertySet {
 public:
  PropertySet& Flag(std::uint32_t id, bool value);
  PropertySet& U8(std::uint32_t id, std::uint8_t value);
  PropertySet& U16(std::uint32_t id, std::uint16_t value);
  PropertySet& U32(std::uint32_t id, std::uint32_t value);
  PropertySet& U64(std::uint32_t id, std::uint64_t value);
  PropertySet& Number(std::uint32_t id, float value);
  PropertySet& Data(std::uint32_t id, const Guid& value);

  /// A text as OneNote keeps it: UTF-16 with a zero at its end ([MS-ONE], WzInAtom).
  PropertySet& Text(std::uint32_t id, std::u16string_view value);

  PropertySet& Object(std::uint32_t id, const ExtendedGuid& object);
  PropertySet& Objects(std::uint32_t id, std::vector<ExtendedGuid> objects);
  PropertySet& Spaces(std::uint32_t id, std::vector<ExtendedGuid> spaces);

  /// The object's data, an ObjectSpaceObjectPropSet ([MS-ONESTORE] 2.6.1), padded to a multiple of 8 bytes.
  std::string Encode(GlobalIdTable& ids) const;

  /// Every reference to an object, and to an object space, in order.
  const std::vector<ExtendedGuid>& objects() const { return m_objects; }
  const std::vector<ExtendedGuid>& spaces() const { return m_spaces; }

 private:
  PropertySet& Add(std::uint32_t id, std::uint32_t type, std::string_view data);

  std::vector<std::uint32_t> m_ids;
  std::string m_data;
  std::vector<ExtendedGuid> m_objects;
  std::vector<ExtendedGuid> m_spaces;
};

}  // namespace quill::section_file
