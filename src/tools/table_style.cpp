#include "tools/table_style.h"

#include <array>
#include <string>
#include <vector>

#include "tools/table_cells.h"

namespace quill::tools {
namespace {

/// The `style` values that one scheme writes, made once: rows after the third repeat the second and third.
class CellStyles {
 public:
  explicit CellStyles(const TableStyle& style) {
    for (std::size_t row = 0; row < m_values.size(); ++row) {
      for (const bool isFirst : {false, true}) {
        const std::string_view color = CellColor(style, static_cast<std::int64_t>(row) + 1, isFirst);
        if (!color.empty()) m_values[row][isFirst] = std::string("background-color:").append(color);
      }
    }
  }

  const std::string& ForCell(std::int64_t row, bool isFirst) const {
    return m_values[row == 1 ? 0 : row % 2 == 0 ? 1 : 2][isFirst];
  }

 private:
  std::array<std::array<std::string, 2>, 3> m_values;
};

/// Colours the cells of row number `index`; what is no cell is searched for cells as if it were a row.
void ChangeStyle_TR(pugi::xml_node row, std::int64_t index, const CellStyles& styles) {
  std::vector<char> cellSeen{false};  // one entry for each element on the way down
  pugi::xml_node node = row.first_child();
  while (node) {
    if (IsElementNamed(node, "td")) {
      if (pugi::xml_attribute style = node.attribute("style"))
        style.set_value(styles.ForCell(index, !cellSeen.back()).c_str());
      cellSeen.back() = true;
    } else if (node.first_child()) {
      cellSeen.push_back(false);
      node = node.first_child();
      continue;
    }
    while (node != row && !node.next_sibling()) {
      node = node.parent();
      cellSeen.pop_back();
    }
    if (node == row) return;
    node = node.next_sibling();
  }
}

}  // namespace

std::string_view CellColor(const TableStyle& style, std::int64_t row, bool isFirstInRow) {
  if (row == 1 && !style.headerRow.empty()) return style.headerRow;
  if (isFirstInRow && !style.firstColumn.empty()) return style.firstColumn;
  return row % 2 != 0 ? style.oddRows : style.evenRows;
}

void ChangeStyle(pugi::xml_node table, const TableStyle& style) {
  const CellStyles styles(style);
  std::int64_t index = 0;
  for (pugi::xml_node node = table.first_child(); node;) {
    const bool isRow = IsElementNamed(node, "tr");
    if (isRow) {
      ChangeStyle_TR(node, ++index, styles);
    } else if (node.type() == pugi::node_element) {
      index = 0;
    }
    node = !isRow && node.first_child() ? node.first_child() : NextBehind(node, table);
  }
}

TableStyleOutcome ChangeTableStyle_Recurse(pugi::xml_node element, const ChooseTableStyle& choose) {
  TableStyleOutcome outcome{element.first_child() ? -1 : 0, false};
  for (pugi::xml_node node = element.first_child(); node;) {
    if (IsElementNamed(node, "table")) {
      outcome.tableMet = true;
      if (const TableStyle* style = choose(node)) {
        ChangeStyle(node, *style);
        outcome.value = 1;
        return outcome;
      }
      outcome.value = -1;
      node = NextBehind(node.parent(), element);
    } else {
      if (node.type() == pugi::node_element) outcome.value = node.first_child() ? -1 : 0;
      node = node.first_child() ? node.first_child() : NextBehind(node, element);
    }
  }
  return outcome;
}

}  // namespace quill::tools
