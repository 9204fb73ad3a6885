#pragma once
#include <atomic>
#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace quill::shell {

/// The texts shown to users, by exact key ("msg…", "err…", "ask…", "title…", "str…" and others). Read from
/// any thread; texts that were handed out stay valid when the language changes.
class StringTable {
 public:
  /// The texts of `language` ("en", "de", …) over the English ones; an unknown language is English.
  explicit StringTable(std::string_view language = "en");
  StringTable(const StringTable&) = delete;
  StringTable& operator=(const StringTable&) = delete;

  /// From here on the texts are those of another language. Any thread.
  void UseLanguage(std::string_view language);

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
  using Texts = std::unordered_map<std::string, std::string, Hash, std::equal_to<>>;

  const Texts& Load(std::string_view language);
  const std::string* Find(std::string_view key) const;

  std::mutex m_mutex;
  std::map<std::string, Texts, std::less<>> m_loaded;  ///< never shrinks: views into it are out there
  const Texts* m_english;
  std::atomic<const Texts*> m_current;
};

}  // namespace quill::shell
