#pragma once
#include <cstdint>
#include <functional>
#include <optional>
#include <pugixml.hpp>
#include <string>
#include <string_view>
#include <vector>

namespace quill::tools {

/// The size of a text as readers count it. Characters are UTF-16 units.
struct WordCounts {
  std::int64_t paragraphs = 0;
  std::int64_t charactersNoSpaces = 0;
  std::int64_t charactersWithSpaces = 0;
  std::int64_t nonAsianWords = 0;
  std::int64_t asianWords = 0;
  std::int64_t images = 0;

  std::int64_t Words() const { return nonAsianWords + asianWords; }
  bool operator==(const WordCounts&) const = default;
};

/// Adds the characters and words of a text (UTF-8) to the counts.
///
/// A character above U+00FF is an Asian word by itself, two beyond U+FFFF. A non-Asian word is a run of other
/// characters that white space (blank, TAB, LF, VT, FF, CR) or the end of the text follows: a run right in
/// front of an Asian character is not counted. O(text).
void StatisticsWords(std::string_view text, WordCounts& counts);

/// Counts what is below an element. Every element except `span`, `a` and `img` is a block; a block without
/// blocks inside, seen through `span` and `a`, is a paragraph. Text counts inside of blocks only. Without
/// recursion, O(subtree).
WordCounts CountWords(pugi::xml_node root);

struct TableSize {
  std::int64_t columns = 0;
  std::int64_t rows = 0;
};

/// The direct rows of the first table below `root`, and the cells of its first row that has any `td`. Nothing
/// when there is no table. O(subtree).
std::optional<TableSize> CountTable(pugi::xml_node root);

/// One line of the list: the key of its label in the string table, and the number.
struct CountRow {
  std::string_view key;
  std::int64_t value;
};

/// The seven rows of the word count, in the order they are shown.
std::vector<CountRow> RowsOf(const WordCounts& counts);

/// The two rows of the table information; none without a table.
std::vector<CountRow> RowsOf(const std::optional<TableSize>& size);

/// The list as text to copy: label, TAB and number in a line each. `label` gives the words for a key.
std::string TextOf(const std::vector<CountRow>& rows,
                   const std::function<std::string(std::string_view key)>& label);

}  // namespace quill::tools
