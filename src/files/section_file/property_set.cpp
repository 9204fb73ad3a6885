#include "files/section_file/property_set.h"

#include <bit>
#include <stdexcept>

#include "files/section_file/byte_writer.h"

namespace quill::section_file {
namespace {

// The types of properties ([MS-ONESTORE] 2.6.6).
constexpr std::uint32_t kBool = 0x2;
constexpr std::uint32_t kOneByte = 0x3;
constexpr std::uint32_t kTwoBytes = 0x4;
constexpr std::uint32_t kFourBytes = 0x5;
constexpr std::uint32_t kEightBytes = 0x6;
constexpr std::uint32_t kLengthAndBytes = 0x7;
constexpr std::uint32_t kObject = 0x8;
constexpr std::uint32_t kObjects = 0x9;
constexpr std::uint32_t kSpaces = 0xB;

std::string CountOf(const std::vector<ExtendedGuid>& ids) {
  return ByteWriter().U32(static_cast<std::uint32_t>(ids.size())).bytes();
}

std::string WithLength(std::string_view bytes) {
  return ByteWriter().U32(static_cast<std::uint32_t>(bytes.size())).Put(bytes).bytes();
}

/// One stream of identifiers in front of the properties ([MS-ONESTORE] 2.6.2 to 2.6.5).
void PutIds(ByteWriter& to, const std::vector<ExtendedGuid>& ids, std::uint32_t flags, GlobalIdTable& table) {
  to.U32(static_cast<std::uint32_t>(ids.size()) | flags);
  for (const ExtendedGuid& id : ids) to.U32(table.CompactId(id));
}

}  // namespace

PropertySet& PropertySet::Flag(std::uint32_t id, bool value) {
  constexpr std::uint32_t kTrue = 0x80000000;
  return Add(value ? id | kTrue : id, kBool, {});
}

PropertySet& PropertySet::U8(std::uint32_t id, std::uint8_t value) {
  return Add(id, kOneByte, ByteWriter().U8(value).bytes());
}

PropertySet& PropertySet::U16(std::uint32_t id, std::uint16_t value) {
  return Add(id, kTwoBytes, ByteWriter().U16(value).bytes());
}

PropertySet& PropertySet::U32(std::uint32_t id, std::uint32_t value) {
  return Add(id, kFourBytes, ByteWriter().U32(value).bytes());
}

PropertySet& PropertySet::U64(std::uint32_t id, std::uint64_t value) {
  return Add(id, kEightBytes, ByteWriter().U64(value).bytes());
}

PropertySet& PropertySet::Number(std::uint32_t id, float value) {
  return U32(id, std::bit_cast<std::uint32_t>(value));
}

PropertySet& PropertySet::Data(std::uint32_t id, const Guid& value) {
  return Add(id, kLengthAndBytes, WithLength(ByteWriter().Put(value).bytes()));
}

PropertySet& PropertySet::Text(std::uint32_t id, std::u16string_view value) {
  ByteWriter text;
  for (const char16_t unit : value) text.U16(unit);
  return Add(id, kLengthAndBytes, WithLength(text.U16(0).bytes()));
}

PropertySet& PropertySet::Object(std::uint32_t id, const ExtendedGuid& object) {
  m_objects.push_back(object);
  return Add(id, kObject, {});
}

PropertySet& PropertySet::Objects(std::uint32_t id, std::vector<ExtendedGuid> objects) {
  m_objects.insert(m_objects.end(), objects.begin(), objects.end());
  return Add(id, kObjects, CountOf(objects));
}

PropertySet& PropertySet::Spaces(std::uint32_t id, std::vector<ExtendedGuid> spaces) {
  m_spaces.insert(m_spaces.end(), spaces.begin(), spaces.end());
  return Add(id, kSpaces, CountOf(spaces));
}

std::string PropertySet::Encode(GlobalIdTable& ids) const {
  constexpr std::uint32_t kNoSpacesFollow = 0x80000000;
  ByteWriter result;
  PutIds(result, m_objects, m_spaces.empty() ? kNoSpacesFollow : 0, ids);
  if (!m_spaces.empty()) PutIds(result, m_spaces, 0, ids);
  result.U16(static_cast<std::uint16_t>(m_ids.size()));
  for (const std::uint32_t id : m_ids) result.U32(id);
  return result.Put(m_data).Align().bytes();
}

PropertySet& PropertySet::Add(std::uint32_t id, std::uint32_t type, std::string_view data) {
  if ((id >> 26 & 0x1F) != type) throw std::invalid_argument("a property's value is of another type");
  m_ids.push_back(id);
  m_data += data;
  return *this;
}

}  // namespace quill::section_file
