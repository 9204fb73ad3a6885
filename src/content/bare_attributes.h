#pragma once
#include <cstddef>
#include <string_view>

namespace quill::content {

/// The number of attribute names whose bare values get quotes; their order is the order of quoting.
inline constexpr int kBareAttributeCount = 13;

/// Where "alt" stands in that order.
inline constexpr int kAltOrder = 8;

/// Which of the names ends just before the "=" at `equals`, letters in any case, or -1.
///
/// A longer name that ends in one of them counts too ("xml:lang"). No name is the end of another, so there is
/// at most one.
int BareAttributeBefore(std::string_view text, std::size_t equals);

/// The first white space or ">" at or after `from`, or npos: where a bare value ends.
std::size_t FindValueEnd(std::string_view text, std::size_t from);

}  // namespace quill::content
