#include "content/duplicate_names.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <functional>
#include <optional>

namespace quill::content {
namespace {

constexpr std::size_t kFew = 8;
constexpr int kMaxProbes = 64;

/// The answer by a hash table, or nothing when too many names fall on one place.
std::optional<bool> FindByHash(const std::vector<std::string_view>& names) {
  std::vector<std::uint32_t> slots(std::bit_ceil(names.size() * 2));  // index of a name + 1; 0 is free
  for (std::size_t i = 0; i < names.size(); ++i) {
    std::size_t slot = std::hash<std::string_view>()(names[i]);
    int probes = 0;
    for (;; ++slot, ++probes) {
      std::uint32_t& content = slots[slot & (slots.size() - 1)];
      if (content == 0) {
        content = static_cast<std::uint32_t>(i + 1);
        break;
      }
      if (names[content - 1] == names[i]) return true;
      if (probes == kMaxProbes) return std::nullopt;
    }
  }
  return false;
}

}  // namespace

bool HasDuplicates(std::vector<std::string_view>& names) {
  if (names.size() <= kFew) {
    for (auto i = names.begin(); i != names.end(); ++i) {
      if (std::find(names.begin(), i, *i) != i) return true;
    }
    return false;
  }
  if (const auto found = FindByHash(names)) return *found;
  std::sort(names.begin(), names.end());
  return std::adjacent_find(names.begin(), names.end()) != names.end();
}

}  // namespace quill::content
