#include "files/name_number.h"

#include <limits>

namespace quill::files {

std::int64_t NumberOfName(std::string_view name) {
  constexpr std::uint64_t kBasis = 14695981039346656037u;  // FNV-1a
  constexpr std::uint64_t kPrime = 1099511628211u;
  std::uint64_t hash = kBasis;
  for (const char c : name) hash = (hash ^ static_cast<unsigned char>(c)) * kPrime;
  const auto number = static_cast<std::int64_t>(hash & std::numeric_limits<std::int64_t>::max());
  return number == 0 ? 1 : number;
}

}  // namespace quill::files
