#pragma once
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace quill::tools {

/// How text is cut into cells, by the numbers of the setting `Text2Table_Index`. Any other number cuts at
/// commas.
enum class TextTableMode : std::int64_t { Paragraphs = 0, Tabs = 1, Commas = 2, Other = 3 };

/// The most cells that a table by paragraphs gets; the size comes from free text fields.
inline constexpr std::int64_t kMostTableCells = 1'000'000;

/// The text that a table is made from: the clipboard's, without white space at both ends.
std::string_view TextToTableSource(std::string_view clipboardText);

/// How the text is to be cut; `other` is the separator of `Other`. An empty one cuts nothing.
struct TextTableCut {
  TextTableMode mode = TextTableMode::Paragraphs;
  std::string_view other;
};

/// What separates the pieces of a line: a tab, the text of `Other`, or a comma. Means nothing by paragraphs.
std::string_view SeparatorOf(const TextTableCut& cut);

/// Whether a table by paragraphs of this size has more than `kMostTableCells`.
bool ExceedsMostCells(std::string_view columnsField, std::string_view rowsField);

/// Which field of the dialog caused the sizes to be worked out again.
enum class EditedField { Columns, Another };

/// What the two size fields show; no `columns` leaves the Columns field as it is.
struct TableSizeFields {
  std::optional<std::int64_t> columns;
  std::int64_t rows = 0;
};

/// Works the size fields out from the text and the Columns field. Lines end at line feeds, empty lines count.
///
/// By paragraphs: the integer in the Columns field, 0 becoming 1, and as many rows as the lines fill.
/// By a separator: the pieces of the first line that is not empty (1 when all are), and a row for each line.
/// The Columns field is never written to while the user edits it. O(text).
TableSizeFields GetColumnsRows(std::string_view text, const TextTableCut& cut, std::string_view columnsField,
                               EditedField edited);

/// A pasteboard document that holds one table.
struct TextTable {
  std::string html;
  bool isClamped =
      false;  ///< the size that was asked for exceeded `kMostTableCells`; the first cells are there
};

/// Makes the table. The integers of the two fields are the size of a table by paragraphs, row by row one line
/// a cell; in its first row and column empty cells hold "-". By a separator each line is a row of as many
/// cells as it has pieces, an empty line one cell with "-", and the fields do not matter.
///
/// Cell text goes into the HTML as it stands: the user may have written markup. O(text + cells).
TextTable CreateTable(std::string_view text, const TextTableCut& cut, std::string_view columnsField,
                      std::string_view rowsField);

}  // namespace quill::tools
