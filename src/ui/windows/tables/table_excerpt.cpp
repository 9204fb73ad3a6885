#include "ui/windows/tables/table_excerpt.h"

#include <algorithm>

#include "content/unicode_text.h"

namespace quill::ui {
namespace {

// More than a preview has room for; laying out so much takes 10 to 20 ms.
constexpr std::int64_t kMostRows = 15;
constexpr std::int64_t kMostColumns = 10;
constexpr std::size_t kLongestCell = 400;
constexpr std::size_t kMostText = 8'000;

std::int64_t SizeIn(std::string_view field) {
  return std::max<std::int64_t>(0, content::LeadingInteger(field));
}

/// Takes the text up to the next separator, or all of it, off the front of `rest`. False when that was the
/// last piece; `rest` is then empty.
bool TakePiece(std::string_view& rest, std::string_view separator, std::string_view& piece) {
  const std::size_t end = separator.empty() ? std::string_view::npos : rest.find(separator);
  piece = rest.substr(0, end);
  rest.remove_prefix(end == std::string_view::npos ? rest.size() : end + separator.size());
  return end != std::string_view::npos;
}

/// The beginning of a cell, without half a character or half a tag at its end.
std::string_view Shortened(std::string_view cell) {
  if (cell.size() <= kLongestCell) return cell;
  std::size_t end = kLongestCell;
  while (end > 0 && (static_cast<unsigned char>(cell[end]) & 0xC0) == 0x80) --end;
  cell = cell.substr(0, end);
  const std::size_t tag = cell.rfind('<');
  return tag != std::string_view::npos && cell.find('>', tag) == std::string_view::npos ? cell.substr(0, tag)
                                                                                        : cell;
}

class Excerpt {
 public:
  void Add(std::string_view cell, std::string_view end) {
    const std::string_view shown = Shortened(cell);
    isPart = isPart || shown.size() < cell.size();
    text.append(shown).append(end);
  }
  bool IsFull() const { return text.size() > kMostText; }

  std::string text;
  bool isPart = false;
};

TableExcerpt ByParagraphs(std::string_view rest, std::int64_t columns, std::int64_t rows) {
  Excerpt excerpt;
  const std::int64_t shownColumns = std::min(columns, kMostColumns);
  std::int64_t shownRows = std::min(rows, kMostRows);
  bool hasMore = true;
  for (std::int64_t row = 0; row < shownRows && hasMore; ++row) {
    if (excerpt.IsFull()) {
      shownRows = row;
      break;
    }
    for (std::int64_t column = 0; column < columns && hasMore; ++column) {
      std::string_view line;
      hasMore = TakePiece(rest, "\n", line);
      if (column < shownColumns) excerpt.Add(content::TrimBlanks(line), "\n");
    }
  }
  const bool isPart = excerpt.isPart || shownColumns < columns || shownRows < rows;
  return {tools::CreateTable(excerpt.text, {}, std::to_string(shownColumns), std::to_string(shownRows)).html,
          isPart};
}

TableExcerpt BySeparator(std::string_view rest, const tools::TextTableCut& cut) {
  Excerpt excerpt;
  const std::string_view separator = tools::SeparatorOf(cut);
  bool hasMore = true;
  for (std::int64_t row = 0; row < kMostRows && hasMore && !excerpt.IsFull(); ++row) {
    if (row > 0) excerpt.text += '\n';
    std::string_view line;
    hasMore = TakePiece(rest, "\n", line);
    bool hasMoreCells = true;
    for (std::int64_t column = 0; column < kMostColumns && hasMoreCells; ++column) {
      if (column > 0) excerpt.text += separator;
      std::string_view cell;
      hasMoreCells = TakePiece(line, separator, cell);
      excerpt.Add(cell, "");
    }
    excerpt.isPart = excerpt.isPart || hasMoreCells;
  }
  return {tools::CreateTable(excerpt.text, cut, "", "").html, excerpt.isPart || hasMore};
}

}  // namespace

TableExcerpt ExcerptOfTable(std::string_view text, const tools::TextTableCut& cut,
                            std::string_view columnsField, std::string_view rowsField) {
  if (cut.mode != tools::TextTableMode::Paragraphs) return BySeparator(text, cut);
  return ByParagraphs(text, SizeIn(columnsField), SizeIn(rowsField));
}

}  // namespace quill::ui
