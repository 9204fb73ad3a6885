#pragma once
#include <chrono>
#include <string>

#include "tools/date_text.h"

namespace quill::tools {

/// A moment as the histories that the program writes name it: "YYYY-MM-dd HH:mm:ss". The year is that of the
/// locale's week, which around New Year may be another than that of the day. Digits and calendar are the same
/// everywhere, so that the text can be read back.
std::string HistoryTime(std::chrono::system_clock::time_point moment, const DateStyle& style = {});

}  // namespace quill::tools
