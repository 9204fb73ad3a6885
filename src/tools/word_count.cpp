#include "tools/word_count.h"

#include <array>

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
  std::uint64_t isRunOpen = 0;
  std::uint64_t words = 0;
  while (!text.empty()) {
    const std::string_view block = text.substr(0, kBlock);
    text.remove_prefix(block.size());
    std::uint64_t sums = 0;
    for (const char c : block) {
      const ByteClass& byte = kClasses[static_cast<unsigned char>(c)];
      sums += byte.adds;
      words += isRunOpen & (byte.adds >> kFieldBits);
      isRunOpen = byte.opensRun | (byte.keepsRun & isRunOpen);
    }
    const auto units = static_cast<std::int64_t>(sums & kFieldMask);
    const auto spaces = static_cast<std::int64_t>(sums >> kFieldBits & kFieldMask);
    counts.charactersWithSpaces += units;
    counts.charactersNoSpaces += units - spaces;
    counts.asianWords += static_cast<std::int64_t>(sums >> 2 * kFieldBits);
  }
  counts.nonAsianWords += static_cast<std::int64_t>(words + isRunOpen);
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
