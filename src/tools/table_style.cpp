#include "tools/table_style.h"

#include <string>
#include <vector>

#include "tools/table_cells.h"

namespace quill::tools {
namespace {

/// The `style` values that one scheme writes.
class CellStyles {
 public:
  explicit CellStyles(const TableStyle& style)
      : m_header(Declaration(style.headerRow)),
        m_firstColumn(Declaration(style.firstColumn)),
        m_odd(Declaration(style.oddRows)),
        m_even(Declaration(style.evenRows)) {}

  const std::string& ForCell(std::int64_t row, bool isFirst) const {
    if (row == 1 && !m_header.empty()) return m_header;
    if (isFirst && !m_firstColumn.empty()) return m_firstColumn;
    return row % 2 != 0 ? m_odd : m_even;
  }

 private:
  static std::string Declaration(std::string_view color) {
    return color.empty() ? "" : std::string("background-color:").append(color);
  }

  std::string m_header;
  std::string m_firstColumn;
  std::string m_odd;
  std::string m_even;
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
