#include "files/property_list.h"

#include <fmt/format.h>
#include <plist/plist.h>
#include <unicode/utf8.h>

#include <cstdlib>

#include "files/property_list_guard.h"
#include "platform/posix/c_locale.h"

namespace quill::files {
namespace {

bool XmlCanHold(UChar32 c) {
  if (c < 0x20) return c == '\t' || c == '\n' || c == '\r';
  return c != 0xFFFE && c != 0xFFFF;
}

std::string LegalText(std::string_view text) {
  std::string legal;
  legal.reserve(text.size());
  const auto size = static_cast<std::int32_t>(text.size());
  for (std::int32_t i = 0; i < size;) {
    const std::int32_t start = i;
    UChar32 c;
    U8_NEXT(text.data(), i, size, c);
    if (c < 0) {
      legal += "\xEF\xBF\xBD";
    } else if (XmlCanHold(c)) {
      legal.append(text, start, i - start);
    }
  }
  return legal;
}

struct FreeXml {
  void operator()(char* text) const { plist_to_xml_free(text); }
};

struct FreeMemory {
  void operator()(void* memory) const { std::free(memory); }
};

template <class T, class... More>
T ValueOf(plist_t node, void (*get)(plist_t, T*, More...)) {
  T value{};
  get(node, &value);
  return value;
}

}  // namespace

void PropertyList::Free::operator()(void* node) const {
  plist_free(node);
}

PropertyList::PropertyList() : m_root(plist_new_dict()) {}

PropertyList::Value PropertyList::Get(std::string_view key) const {
  const plist_t node = plist_dict_get_item(m_root.get(), std::string(key).c_str());
  if (node == nullptr) return Absent{};
  switch (plist_get_node_type(node)) {
    case PLIST_BOOLEAN:
      return ValueOf<std::uint8_t>(node, plist_get_bool_val) != 0;
    case PLIST_UINT:
      return static_cast<std::int64_t>(ValueOf<std::uint64_t>(node, plist_get_uint_val));
    case PLIST_REAL:
      return ValueOf<double>(node, plist_get_real_val);
    case PLIST_STRING: {
      std::uint64_t length = 0;
      const char* text = plist_get_string_ptr(node, &length);
      return text == nullptr ? std::string() : std::string(text, length);
    }
    default:
      return Other{};
  }
}

std::vector<std::string> PropertyList::Keys() const {
  plist_dict_iter position = nullptr;
  plist_dict_new_iter(m_root.get(), &position);
  const std::unique_ptr<void, FreeMemory> ownPosition(position);
  std::vector<std::string> keys;
  for (;;) {
    char* key = nullptr;
    plist_t node = nullptr;
    plist_dict_next_item(m_root.get(), position, &key, &node);
    const std::unique_ptr<char, FreeMemory> ownKey(key);
    if (node == nullptr) return keys;
    keys.emplace_back(key);
  }
}

void PropertyList::Set(std::string_view key, void* node) {
  plist_dict_set_item(m_root.get(), LegalText(key).c_str(), node);
}

void PropertyList::SetBool(std::string_view key, bool value) {
  Set(key, plist_new_bool(value ? 1 : 0));
}

void PropertyList::SetInteger(std::string_view key, std::int64_t value) {
  Set(key, plist_new_uint(static_cast<std::uint64_t>(value)));  // negative ones are written with their sign
}

void PropertyList::SetText(std::string_view key, std::string_view value) {
  Set(key, plist_new_string(LegalText(value).c_str()));
}

void PropertyList::Remove(std::string_view key) {
  plist_dict_remove_item(m_root.get(), std::string(key).c_str());
}

Result<std::string> PropertyList::ToXml() const {
  const platform::CLocaleScope numbers;
  char* text = nullptr;
  std::uint32_t length = 0;
  plist_to_xml(m_root.get(), &text, &length);
  const std::unique_ptr<char, FreeXml> own(text);
  if (text == nullptr) return Failure{std::string("cannot be written as a property list")};
  if (length > kPropertyListLimit) return Failure{std::string("has grown too large for a property list")};
  return std::string(text, length);
}

PropertyList PropertyList::Read(Reader reader, std::string_view bytes) {
  const platform::CLocaleScope numbers;
  plist_t root = nullptr;
  reader(bytes.data(), static_cast<std::uint32_t>(bytes.size()), &root);
  return PropertyList(root);
}

Result<PropertyList> ParsePropertyList(std::string_view bytes) {
  constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
  if (bytes.starts_with(kByteOrderMark)) bytes.remove_prefix(kByteOrderMark.size());
  if (bytes.size() > kPropertyListLimit)
    return Failure{fmt::format("is larger than {} bytes", kPropertyListLimit)};
  const bool binary = bytes.starts_with("bplist");
  const Status<> harmless = binary ? CheckBinaryPropertyList(bytes) : CheckXmlPropertyList(bytes);
  if (!harmless.ok()) return Failure{harmless.error()};
  PropertyList list = PropertyList::Read(binary ? plist_from_bin : plist_from_xml, bytes);
  if (!list.m_root) return Failure{std::string("is not a property list")};
  if (plist_get_node_type(list.m_root.get()) != PLIST_DICT)
    return Failure{std::string("is a property list without keys")};
  if (!binary) return list;
  // The binary form can hold what XML cannot. Through XML once: what is taken can also be saved and read.
  const Result<std::string> xml = list.ToXml();
  if (!xml.ok()) return Failure{xml.error()};
  return ParsePropertyList(*xml);
}

}  // namespace quill::files
