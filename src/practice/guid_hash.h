#pragma once
#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>

namespace quill::practice {

/// A hash of 128 bits (FNV-1a) over some texts, the same on every system. Where one text ends and the next
/// begins counts too. It finds equal contents again and is no protection against anybody.
struct TextHash {
  std::uint64_t high = 0;
  std::uint64_t low = 0;
};
TextHash HashOf(std::initializer_list<std::string_view> texts);

/// The hash as a GUID, "{8-4-4-4-12}" in upper case, marked as one of an own making (version 8).
std::string GuidOf(std::initializer_list<std::string_view> texts);

}  // namespace quill::practice
