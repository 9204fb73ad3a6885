// The settings file may hold anything after a crash or a sync: reading it ends, and what was read is
// written so that it reads back the same.
#include <cstdint>
#include <cstdlib>

#include "files/property_list.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using quill::files::ParsePropertyList;
  const auto list = ParsePropertyList({reinterpret_cast<const char*>(data), size});
  if (!list.ok()) return 0;
  const auto once = list->ToXml();
  if (!once.ok()) return 0;
  const auto again = ParsePropertyList(*once);
  if (!again.ok() || again->Keys() != list->Keys()) std::abort();
  const auto twice = again->ToXml();
  if (!twice.ok() || *twice != *once) std::abort();
  return 0;
}
