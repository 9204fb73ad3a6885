#pragma once
#include <chrono>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "base/result.h"
#include "base/stored_date.h"

namespace quill::files {

/// A property-list file of string keys (XML or binary in, XML out). Values of another type than asked
/// for are converted as the platform's property lists do: true, 1, "YES" and "true" are true, a text
/// that is no number is 0. A value that is not a text counts as absent where a text is asked for.
/// Not thread-safe; belongs to the thread that made it.
class MConfig {
 public:
  /// Opens the file; a missing file is an empty list. A file that is there and not empty but cannot be
  /// read as a property list is an empty list too, `Damaged()` says so, and the first `Save` sets it
  /// aside under its name with ".bad" added before anything is written.
  explicit MConfig(std::filesystem::path file);
  ~MConfig();
  MConfig(MConfig&&) noexcept;
  MConfig& operator=(MConfig&&) noexcept;

  /// What is wrong with the file, as a sentence that names it; empty when nothing is.
  const std::string& Problem() const;
  bool Damaged() const { return !Problem().empty(); }
  /// Where the first `Save` puts a damaged file.
  static std::filesystem::path DamagedCopy(const std::filesystem::path& file);

  std::string ReadString(std::string_view key, std::string_view otherwise) const;
  bool ReadBool(std::string_view key, bool otherwise) const;
  std::int64_t ReadInt(std::string_view key, std::int64_t otherwise) const;
  /// An absent key yields `otherwise`; a stored text that is no "yyyyMMdd" day yields no date.
  StoredDate ReadDate(std::string_view key, StoredDate otherwise) const;

  void WriteString(std::string_view key, std::string_view value);
  void WriteBool(std::string_view key, bool value);
  void WriteInt(std::string_view key, std::int64_t value);
  /// No date is written as an empty text, which reads back as no date.
  void WriteDate(std::string_view key, StoredDate value);
  void Remove(std::string_view key);

  /// The keys in the file's order.
  std::vector<std::string> Keys() const;

  /// Writes the whole list: temporary file beside it, mode 0600, fsync, rename, fsync of the folder.
  /// On failure the old file is as it was and the text says why.
  Status<> Save();

 private:
  struct State;
  std::unique_ptr<State> m_state;
};

}  // namespace quill::files
