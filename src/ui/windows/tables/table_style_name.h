#pragma once
#include <string>

#include "shell/string_table.h"
#include "tools/table_styles.h"

namespace quill::ui {

/// What a style looks like, in words: "Style 22: header row black, first column black, rows white and grey".
/// `number` counts from 1.
std::string TableStyleName(const shell::StringTable& strings, int number, const tools::TableStyle& style);

}  // namespace quill::ui
