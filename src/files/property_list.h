#pragma once
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "base/result.h"

namespace quill::files {

/// More than any settings file of this program holds (two tokens of a few KB, some hundred favourites).
inline constexpr std::uint32_t kPropertyListLimit = 4 << 20;

/// A property list whose root is a dictionary. Values that nobody asks for, nested ones included, stay as
/// they were read. Belongs to the thread that uses it.
class PropertyList {
 public:
  struct Absent {};
  struct Other {};  ///< a list, dictionary, data or date
  using Value = std::variant<Absent, bool, std::int64_t, double, std::string, Other>;

  PropertyList();

  Value Get(std::string_view key) const;
  /// The keys in the file's order.
  std::vector<std::string> Keys() const;

  void SetBool(std::string_view key, bool value);
  void SetInteger(std::string_view key, std::int64_t value);
  /// What XML cannot hold is left out (control characters) or replaced by U+FFFD (ill-formed UTF-8).
  void SetText(std::string_view key, std::string_view value);
  void Remove(std::string_view key);

  /// The XML form. Fails when it would be larger than `ParsePropertyList` takes.
  Result<std::string> ToXml() const;

 private:
  friend Result<PropertyList> ParsePropertyList(std::string_view bytes);
  struct Free {
    void operator()(void* node) const;
  };
  explicit PropertyList(void* root) : m_root(root) {}
  using Reader = void (*)(const char* bytes, std::uint32_t length, void** root);
  static PropertyList Read(Reader reader, std::string_view bytes);
  void Set(std::string_view key, void* node);

  std::unique_ptr<void, Free> m_root;
};

/// Reads the XML or the binary form, whichever it is. Safe on hostile bytes: what would overflow the stack
/// or unfold without end is refused first. The failure reads on from a file's name: "is not a property
/// list".
Result<PropertyList> ParsePropertyList(std::string_view bytes);

}  // namespace quill::files
