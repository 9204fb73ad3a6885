#pragma once
#include <string>
#include <string_view>

#include "tools/text_to_table.h"

namespace quill::ui {

/// The top left part of a table, small enough to be laid out while the user types.
struct TableExcerpt {
  std::string html;
  bool isPart = false;  ///< the table has more rows, columns or text
};

/// What `tools::CreateTable` makes of the beginning of the text, each cell at the place that it has in the
/// whole table. O(text) at most; the result is bounded.
TableExcerpt ExcerptOfTable(std::string_view text, const tools::TextTableCut& cut,
                            std::string_view columnsField, std::string_view rowsField);

}  // namespace quill::ui
