#pragma once
#include <cstdint>
#include <functional>
#include <pugixml.hpp>

#include "tools/table_styles.h"

namespace quill::tools {

/// The colour that a style gives a cell: the header's in row 1, the first column's, otherwise that of odd or
/// even rows. `row` counts from 1. O(1).
std::string_view CellColor(const TableStyle& style, std::int64_t row, bool isFirstInRow);

/// Colours the cells of a table in place: the header colour for its first row, the first-column colour for
/// the first cell of a row, otherwise the colour of odd or even rows.
///
/// A cell's whole old `style` is replaced, borders and widths included; a cell without one stays as it is.
/// Rows inside body and group elements are coloured too, and counting starts anew at each such element.
/// Without recursion, O(table).
void ChangeStyle(pugi::xml_node table, const TableStyle& style);

/// Asked for each table that is met: the style it shall get, or null when the user does not want to.
using ChooseTableStyle = std::function<const TableStyle*(pugi::xml_node table)>;

struct TableStyleOutcome {
  /// 1 = a table was restyled. Otherwise what was looked at last decides: 0 = an element without any
  /// content, -1 = anything else.
  std::int64_t value;
  /// Whether there was any table to ask for.
  bool tableMet;
};

/// Offers the tables below `element` for restyling, in document order, and ends at the first one that is.
///
/// After a refusal the siblings of that table are passed over; the search goes on behind their parent and
/// may ask again. The inside of a table is not searched. Without recursion, O(subtree).
TableStyleOutcome ChangeTableStyle_Recurse(pugi::xml_node element, const ChooseTableStyle& choose);

}  // namespace quill::tools
