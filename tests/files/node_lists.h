#pragma once
#include <cstddef>
#include <cstdint>
#include <map>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace quill::test {

/// The first thing in a file that does not fit.
struct Damage : std::runtime_error {
  using std::runtime_error::runtime_error;
};

inline void Need(bool holds, const char* what) {
  if (!holds) throw Damage(what);
}

/// Takes what it is asked for from the front of some bytes; `Damage` when there is not so much.
class Cursor {
 public:
  explicit Cursor(std::string_view bytes) : m_rest(bytes) {}

  std::string_view Take(std::uint64_t count) {
    Need(count <= m_rest.size(), "cut off");
    const std::string_view taken = m_rest.substr(0, count);
    m_rest.remove_prefix(count);
    return taken;
  }
  std::uint64_t Number(std::size_t size) {
    std::uint64_t value = 0;
    const std::string_view bytes = Take(size);
    for (std::size_t i = size; i-- > 0;) value = value << 8 | static_cast<unsigned char>(bytes[i]);
    return value;
  }
  std::string Id() { return std::string(Take(20)); }
  std::string_view rest() const { return m_rest; }
  void End() const { Need(m_rest.empty(), "bytes left over"); }
  void EndOfZeros() const { Need(m_rest.find_first_not_of('\0') == m_rest.npos, "padding is not zero"); }

 private:
  std::string_view m_rest;
};

/// A chunk of the file.
struct Place {
  std::uint64_t begin = 0, size = 0;

  bool IsNil() const { return begin == ~std::uint64_t{0} && size == 0; }
};

/// One node of a list.
struct StoredNode {
  unsigned kind = 0;
  Place place;
  Cursor data{""};
};

/// The lower half of the reader: header, transaction log, lists of nodes, and which bytes of the file belong
/// to what. Throws `Damage`.
class NodeLists {
 public:
  /// Reads the header and the log.
  explicit NodeLists(std::string_view file);

  const Place& Root() const { return m_root; }

  /// The nodes of the list that begins there, in all its fragments. A list is read once.
  std::vector<StoredNode> Read(Place place);

  /// The bytes of a chunk, which lies in the file and overlaps no other.
  std::string_view Chunk(const Place& place);

  /// No list of the log is left, and what belongs to no chunk is zero.
  void CheckAllIsRead() const;

 private:
  Place ReadHeader();
  void ReadLog(Place place);
  std::uint64_t TakeCount(std::uint64_t list);

  std::string_view m_file;
  Place m_root;
  std::uint64_t m_transactions = 0;
  std::map<std::uint64_t, std::uint64_t> m_counts;  ///< nodes of each list that was not read yet
  std::map<std::uint64_t, std::uint64_t> m_chunks;  ///< begin and end
};

}  // namespace quill::test
