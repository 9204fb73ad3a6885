#pragma once
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace quill::shell {

/// The texts shown to users, by exact key ("msg…", "err…", "ask…", "title…", "str…" and others). Made once
/// and read from any thread afterwards.
class StringTable {
 public:
  /// The texts of `language` ("en", "de", …) over the English ones; an unknown language is English.
  explicit StringTable(std::string_view language = "en");

  /// The text of a key; a key that is not in the table shows itself.
  std::string_view Text(std::string_view key) const;

  /// `Text` with {0}, {1}, … replaced by the arguments. Inserted text is not looked through again.
  std::string Format(std::string_view key, const std::vector<std::string>& arguments) const;

  bool Has(std::string_view key) const;

 private:
  struct Hash {
    using is_transparent = void;
    std::size_t operator()(std::string_view text) const { return std::hash<std::string_view>()(text); }
  };
  void Load(std::string_view json);

  std::unordered_map<std::string, std::string, Hash, std::equal_to<>> m_texts;
};

}  // namespace quill::shell
