#include "tools/word_count.h"

#include <array>
#include <bit>
#include <cstring>

#include "content/element_lookup.h"
#include "tools/table_cells.h"

namespace quill::tools {
namespace {

// Three counters side by side in one word, so that a byte costs one addition.
constexpr int kFieldBits = 21;
constexpr std::uint64_t kFieldMask = (std::uint64_t{1} << kFieldBits) - 1;
constexpr std::uint64_t kUnit = 1;
constexpr std::uint64_t kSpace = std::uint64_t{1} << kFieldBits;
constexpr std::uint64_t kAsian = std::uint64_t{1} << 2 * kFieldBits;
/// A byte adds at most two to a counter, so the counters hold this many bytes.
constexpr std::size_t kBlock = kFieldMask / 2;

/// What a byte of UTF-8 adds, and whether a non-Asian run is open behind it.
struct ByteClass {
  std::uint64_t adds = 0;
  std::uint64_t opensRun = 0;  ///< 1: a character up to U+00FF begins
  std::uint64_t keepsRun = 0;  ///< 1: goes on as its first byte began
};

constexpr ByteClass Classify(unsigned byte) {
  if (byte == ' ' || (byte >= '\t' && byte <= '\r')) return {kUnit + kSpace, 0, 0};
  if (byte < 0x80) return {kUnit, 1, 0};
  if (byte < 0xC0) return {0, 0, 1};
  if (byte < 0xC4) return {kUnit, 1, 0};
  if (byte < 0xF0) return {kUnit + kAsian, 0, 0};
  return {2 * (kUnit + kAsian), 0, 0};
}

constexpr std::array<ByteClass, 256> kClasses = [] {
  std::array<ByteClass, 256> classes{};
  for (unsigned byte = 0; byte < classes.size(); ++byte) classes[byte] = Classify(byte);
  return classes;
}();

// The first of eight bytes in memory is the lowest of the word.
static_assert(std::endian::native == std::endian::little);
constexpr std::uint64_t kHighBits = 0x8080808080808080;
constexpr std::uint64_t EachByte(std::uint64_t byte) {
  return byte * 0x0101010101010101;
}

/// The high bit of each byte that is white space, for eight bytes of ASCII.
std::uint64_t SpacesIn(std::uint64_t ascii) {
  const std::uint64_t blank = ~((ascii ^ EachByte(' ')) + EachByte(0x7F));
  const std::uint64_t tabOrMore = ascii + EachByte(0x80 - '\t');
  const std::uint64_t moreThanReturn = ascii + EachByte(0x80 - '\r' - 1);
  return (blank | (tabOrMore & ~moreThanReturn)) & kHighBits;
}

/// How many of the eight high bits are set.
std::uint64_t CountHighBits(std::uint64_t bits) {
  return (bits >> 7) * EachByte(1) >> 56;
}

/// Counts through a text: eight bytes of ASCII at a time, byte by byte where there is anything else.
struct Tally {
  std::uint64_t sums = 0;       ///< the three counters
  std::uint64_t words = 0;      ///< ended non-Asian runs
  std::uint64_t isRunOpen = 0;  ///< 1: the last character belongs to such a run

  void Add(std::string_view block) {
    std::size_t at = 0;
    for (; at + sizeof(std::uint64_t) <= block.size(); at += sizeof(std::uint64_t)) {
      std::uint64_t bytes;
      std::memcpy(&bytes, block.data() + at, sizeof bytes);
      if ((bytes & kHighBits) == 0) {
        AddAscii(bytes);
      } else {
        AddBytes(block.substr(at, sizeof bytes));
      }
    }
    AddBytes(block.substr(at));
  }

  void AddAscii(std::uint64_t bytes) {
    const std::uint64_t spaces = SpacesIn(bytes);
    const std::uint64_t others = spaces ^ kHighBits;
    const std::uint64_t behindOthers = others << 8 | isRunOpen << 7;
    words += CountHighBits(spaces & behindOthers);
    isRunOpen = others >> 63;
    sums += 8 * kUnit + CountHighBits(spaces) * kSpace;
  }

  void AddBytes(std::string_view bytes) {
    for (const char c : bytes) {
      const ByteClass& byte = kClasses[static_cast<unsigned char>(c)];
      sums += byte.adds;
      words += isRunOpen & (byte.adds >> kFieldBits);
      isRunOpen = byte.opensRun | (byte.keepsRun & isRunOpen);
    }
  }

  void MoveTo(WordCounts& counts) {
    const auto units = static_cast<std::int64_t>(sums & kFieldMask);
    const auto spaces = static_cast<std::int64_t>(sums >> kFieldBits & kFieldMask);
    counts.charactersWithSpaces += units;
    counts.charactersNoSpaces += units - spaces;
    counts.asianWords += static_cast<std::int64_t>(sums >> 2 * kFieldBits);
    sums = 0;
  }
};

/// Looked through: text inside belongs to the block around.
bool IsInline(pugi::xml_node element) {
  const std::string_view name = element.name();
  return name == "span" || name == "a";
}

bool IsBlock(pugi::xml_node node) {
  return node.type() == pugi::node_element && !IsInline(node) && !IsElementNamed(node, "img");
}

/// Gathers the counts on a walk that says when it enters and when it leaves a node.
class Counter {
 public:
  void Enter(pugi::xml_node node) {
    if (node.type() == pugi::node_pcdata || node.type() == pugi::node_cdata) {
      if (m_openBlocks > 0) StatisticsWords(node.value(), m_counts);
    } else if (IsElementNamed(node, "img")) {
      ++m_counts.images;
    } else if (IsBlock(node)) {
      ++m_openBlocks;
      m_isInnermost = true;
    }
  }

  void Leave(pugi::xml_node node) {
    if (!IsBlock(node)) return;
    --m_openBlocks;
    if (m_isInnermost) ++m_counts.paragraphs;
    m_isInnermost = false;
  }

  const WordCounts& counts() const { return m_counts; }

 private:
  WordCounts m_counts;
  std::int64_t m_openBlocks = 0;
  bool m_isInnermost = false;  ///< no block ended since the last one began
};

}  // namespace

void StatisticsWords(std::string_view text, WordCounts& counts) {
  Tally tally;
  while (!text.empty()) {
    const std::string_view block = text.substr(0, kBlock);
    text.remove_prefix(block.size());
    tally.Add(block);
    tally.MoveTo(counts);
  }
  counts.nonAsianWords += static_cast<std::int64_t>(tally.words + tally.isRunOpen);
}

WordCounts CountWords(pugi::xml_node root) {
  Counter counter;
  pugi::xml_node node = root.first_child();
  while (node) {
    counter.Enter(node);
    if (node.first_child() && !IsElementNamed(node, "img")) {
      node = node.first_child();
      continue;
    }
    counter.Leave(node);
    while (!node.next_sibling() && node.parent() != root) {
      node = node.parent();
      counter.Leave(node);
    }
    node = node.next_sibling();
  }
  return counter.counts();
}

std::optional<TableSize> CountTable(pugi::xml_node root) {
  const pugi::xml_node table = content::FindElementNamed(root, "table");
  if (!table) return std::nullopt;
  TableSize size;
  for (auto row = ThisOrNextNamed(table.first_child(), "tr"); row;
       row = ThisOrNextNamed(row.next_sibling(), "tr")) {
    ++size.rows;
    if (size.columns == 0) size.columns = content::CountChildElementsNamed(row, "td");
  }
  return size;
}

std::vector<CountRow> RowsOf(const WordCounts& counts) {
  return {{"Paragraphs", counts.paragraphs},
          {"Character_No_Spaces", counts.charactersNoSpaces},
          {"Character_With_Spaces", counts.charactersWithSpaces},
          {"Words", counts.Words()},
          {"Non_Asian_Words", counts.nonAsianWords},
          {"Asian_Words", counts.asianWords},
          {"Images", counts.images}};
}

std::vector<CountRow> RowsOf(const std::optional<TableSize>& size) {
  if (!size) return {};
  return {{"Columns", size->columns}, {"Rows", size->rows}};
}

std::string TextOf(const std::vector<CountRow>& rows,
                   const std::function<std::string(std::string_view key)>& label) {
  std::string text;
  for (const CountRow& row : rows)
    text.append(label(row.key)).append("\t").append(std::to_string(row.value)).append("\n");
  return text;
}

}  // namespace quill::tools
