#include "tools/table_to_text.h"

#include "tools/table_cells.h"

namespace quill::tools {
namespace {

struct RowForm {
  std::string_view between;  ///< in front of a cell when the row holds something already
  std::string_view after;    ///< behind each cell
};

RowForm FormOf(TableTextMode mode, std::string_view other) {
  switch (mode) {
    case TableTextMode::TwoParagraphs:
      return {"", "\n\n"};
    case TableTextMode::Paragraph:
      return {"", "\n"};
    case TableTextMode::Tabs:
      return {"\t", ""};
    case TableTextMode::Other:
      return {other, ""};
    case TableTextMode::Commas:
      break;
  }
  return {",", ""};
}

}  // namespace

std::string TableToText(pugi::xml_node table, TableTextMode mode, std::string_view other) {
  const RowForm form = FormOf(mode, other);
  std::string text;
  for (auto row = ThisOrNextNamed(table.first_child(), "tr"); row;
       row = ThisOrNextNamed(row.next_sibling(), "tr")) {
    const std::size_t rowBegin = text.size();
    for (auto cell = ThisOrNextNamed(row.first_child(), "td"); cell;
         cell = ThisOrNextNamed(cell.next_sibling(), "td")) {
      if (text.size() != rowBegin) text += form.between;
      AppendCellText(text, cell);
      text += form.after;
    }
    text += '\n';
  }
  return text;
}

}  // namespace quill::tools
