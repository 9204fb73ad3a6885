#pragma once
#include <pugixml.hpp>
#include <string>
#include <string_view>

namespace quill::tools {

/// The cell as CSV: double quotes doubled, and the whole enclosed in double quotes when it holds a comma or a
/// double quote. Nothing else is a reason to enclose. O(cell).
std::string EncloseQuote(std::string_view cell);

/// The direct rows of a table as CSV, a line feed after each. A cell is its text without line feeds; empty
/// cells at the start of a row leave no comma. O(table).
std::string TableToCsv(pugi::xml_node table);

}  // namespace quill::tools
