#pragma once
#include <cstdint>
#include <string>
#include <string_view>

namespace quill::section_file {

/// A list of nodes ([MS-ONESTORE] 2.4), kept in one fragment.
class FileNodeList {
 public:
  /// The number tells the lists of a file apart and is 16 at least.
  explicit FileNodeList(std::uint32_t number) : m_number(number) {}

  void Add(std::string_view node);

  /// The fragment ([MS-ONESTORE] 2.4.1), as long as its nodes need: a reader finds its end by their count in
  /// the transaction log and by the space that is left.
  std::string Fragment() const;

  std::uint32_t number() const { return m_number; }
  std::uint32_t count() const { return m_count; }

 private:
  std::uint32_t m_number;
  std::uint32_t m_count = 0;
  std::string m_nodes;
};

}  // namespace quill::section_file
