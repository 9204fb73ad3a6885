// Scripts come from a table that users may edit: whatever is in it, parsing ends and never reads past it.
#include <algorithm>
#include <cstdint>
#include <cstdlib>

#include "platform/script/script_parser.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  const auto program = quill::platform::script::ParseScript(text);
  const auto lines = static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n')) + 1;
  if (program.ok() && program->size() > lines) std::abort();
  if (!program.ok() && program.error().substr(0, 5) != "line ") std::abort();
  return 0;
}
