#pragma once
#include <cstdint>
#include <pugixml.hpp>
#include <string>
#include <string_view>

namespace quill::tools {

/// What stands between the cells of a row, by the numbers of the setting `Table2Text_Index`. Any other
/// number separates by commas.
enum class TableTextMode : std::int64_t { TwoParagraphs = 0, Paragraph = 1, Tabs = 2, Commas = 3, Other = 4 };

/// The direct rows of a table as text, a line feed after each; `other` is the separator of `Other`, which
/// may be empty.
///
/// A cell is its text without line feeds. In the two paragraph modes two line feeds or one follow each cell.
/// In the others empty cells at the start of a row leave no separator. O(table).
std::string TableToText(pugi::xml_node table, TableTextMode mode, std::string_view other);

}  // namespace quill::tools
