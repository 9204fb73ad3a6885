#include "tools/text_to_table.h"

#include <algorithm>

#include "content/unicode_text.h"

namespace quill::tools {
namespace {

using namespace std::string_view_literals;

constexpr std::string_view kPageBegin =
    "<html><head><meta http-equiv='Content-Type' content='text/html; charset=utf-8'></head><body>"
    "<table border='1'>";
constexpr std::string_view kPageEnd = "</table></body></html>";

/// Hands out the pieces of a text between separators, empty ones included; at least one. An empty separator
/// cuts nothing.
class Pieces {
 public:
  Pieces(std::string_view text, std::string_view separator) : m_rest(text), m_separator(separator) {}

  std::optional<std::string_view> Next() {
    if (m_isDone) return std::nullopt;
    const std::size_t end = m_separator.empty() ? std::string_view::npos : m_rest.find(m_separator);
    const std::string_view piece = m_rest.substr(0, end);
    m_isDone = end == std::string_view::npos;
    if (!m_isDone) m_rest.remove_prefix(end + m_separator.size());
    return piece;
  }

 private:
  std::string_view m_rest;
  std::string_view m_separator;
  bool m_isDone = false;
};

std::int64_t CountPieces(std::string_view text, std::string_view separator) {
  Pieces pieces(text, separator);
  std::int64_t count = 0;
  while (pieces.Next()) ++count;
  return count;
}

std::string_view FirstLineWithText(std::string_view text) {
  Pieces lines(text, "\n");
  while (const auto line = lines.Next()) {
    if (!line->empty()) return *line;
  }
  return {};
}

/// A size as it was typed; what is no number is 0.
std::int64_t SizeIn(std::string_view field) {
  return std::max<std::int64_t>(0, content::LeadingInteger(field));
}

/// Rows without cells are still rows, so without columns the limit is on their number.
std::int64_t MostRows(std::int64_t columns) {
  return kMostTableCells / std::max<std::int64_t>(1, columns);
}

/// The quotient rounded up, for divisors of either sign.
std::int64_t DivideUp(std::int64_t lines, std::int64_t columns) {
  return lines / columns + (lines % columns != 0 && columns > 0 ? 1 : 0);
}

void AppendCell(std::string& html, std::string_view text) {
  html.append("<td>"sv).append(text).append("</td>"sv);
}

void AppendTableByParagraph(std::string& html, std::string_view text, std::int64_t columns,
                            std::int64_t rows) {
  Pieces lines(text, "\n");
  for (std::int64_t row = 0; row < rows; ++row) {
    html += "<tr>"sv;
    for (std::int64_t column = 0; column < columns; ++column) {
      std::string_view cell = content::TrimBlanks(lines.Next().value_or(""sv));
      if (cell.empty() && (row == 0 || column == 0)) cell = "-"sv;
      AppendCell(html, cell);
    }
    html += "</tr>"sv;
  }
}

void AppendTableBySeparator(std::string& html, std::string_view text, std::string_view separator) {
  Pieces lines(text, "\n");
  while (const auto line = lines.Next()) {
    html += "<tr>"sv;
    if (line->empty()) {
      AppendCell(html, "-"sv);
    } else {
      Pieces cells(*line, separator);
      while (const auto cell = cells.Next()) AppendCell(html, *cell);
    }
    html += "</tr>"sv;
  }
}

}  // namespace

std::string_view TextToTableSource(std::string_view clipboardText) {
  return content::TrimWhite(clipboardText);
}

TableSizeFields GetColumnsRows(std::string_view text, const TextTableCut& cut, std::string_view columnsField,
                               EditedField edited) {
  TableSizeFields fields;
  fields.rows = CountPieces(text, "\n");
  if (cut.mode == TextTableMode::Paragraphs) {
    const std::int64_t asked = content::LeadingInteger(columnsField);
    const std::int64_t columns = asked == 0 ? 1 : asked;
    fields.rows = DivideUp(fields.rows, columns);
    if (edited != EditedField::Columns) fields.columns = columns;
  } else if (edited != EditedField::Columns) {
    fields.columns = CountPieces(FirstLineWithText(text), SeparatorOf(cut));
  }
  return fields;
}

std::string_view SeparatorOf(const TextTableCut& cut) {
  switch (cut.mode) {
    case TextTableMode::Tabs:
      return "\t";
    case TextTableMode::Other:
      return cut.other;
    case TextTableMode::Paragraphs:
    case TextTableMode::Commas:
      break;
  }
  return ",";
}

bool ExceedsMostCells(std::string_view columnsField, std::string_view rowsField) {
  const std::int64_t columns = SizeIn(columnsField);
  const std::int64_t rows = SizeIn(rowsField);
  return rows > 0 && (columns > kMostTableCells || rows > MostRows(columns));
}

TextTable CreateTable(std::string_view text, const TextTableCut& cut, std::string_view columnsField,
                      std::string_view rowsField) {
  TextTable table{std::string(kPageBegin)};
  table.html.reserve(text.size() * 2);
  if (cut.mode == TextTableMode::Paragraphs) {
    const std::int64_t columns = std::min(SizeIn(columnsField), kMostTableCells);
    table.isClamped = ExceedsMostCells(columnsField, rowsField);
    AppendTableByParagraph(table.html, text, columns, std::min(SizeIn(rowsField), MostRows(columns)));
  } else {
    AppendTableBySeparator(table.html, text, SeparatorOf(cut));
  }
  table.html += kPageEnd;
  return table;
}

}  // namespace quill::tools
