#pragma once
#include <cstdint>
#include <string_view>

namespace quill::files {

/// A number that stands for a name where only a number can be handed on: from 1 to 2^63 − 1, the same in
/// every run and on every machine. Two names share a number once in many millions of libraries of a thousand
/// names. O(name).
std::int64_t NumberOfName(std::string_view name);

}  // namespace quill::files
