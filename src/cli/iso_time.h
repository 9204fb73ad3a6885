#pragma once
#include <chrono>
#include <string>
#include <string_view>

#include "base/result.h"

namespace quill::cli {

/// A moment in the form of ISO 8601: YYYY-MM-DD, with or without THH:MM or THH:MM:SS behind it, and with "Z"
/// or "+HH:MM"/"-HH:MM" after a time. Without a zone it is local time. The failure says what was expected.
Result<std::chrono::system_clock::time_point> ParseIsoTime(std::string_view text);

}  // namespace quill::cli
