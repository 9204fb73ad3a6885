#include "tools/table_csv.h"

#include "content/byte_scan.h"
#include "tools/table_cells.h"

namespace quill::tools {
namespace {

void AppendEnclosed(std::string& out, std::string_view cell) {
  if (content::FindByte<',', '"'>(cell, 0) == cell.size()) {
    out += cell;
    return;
  }
  out += '"';
  for (std::size_t quote; (quote = cell.find('"')) != std::string_view::npos; cell.remove_prefix(quote + 1))
    out.append(cell.substr(0, quote)).append("\"\"");
  out.append(cell).append("\"");
}

}  // namespace

std::string EncloseQuote(std::string_view cell) {
  std::string enclosed;
  AppendEnclosed(enclosed, cell);
  return enclosed;
}

std::string TableToCsv(pugi::xml_node table) {
  std::string csv;
  std::string text;
  for (auto row = ThisOrNextNamed(table.first_child(), "tr"); row;
       row = ThisOrNextNamed(row.next_sibling(), "tr")) {
    const std::size_t rowBegin = csv.size();
    for (auto cell = ThisOrNextNamed(row.first_child(), "td"); cell;
         cell = ThisOrNextNamed(cell.next_sibling(), "td")) {
      text.clear();
      AppendCellText(text, cell);
      if (csv.size() != rowBegin) csv += ',';
      AppendEnclosed(csv, text);
    }
    csv += '\n';
  }
  return csv;
}

}  // namespace quill::tools
