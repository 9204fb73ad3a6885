#pragma once
#include <cstddef>
#include <filesystem>

namespace quill::files {

/// Removes the symbolic links below a folder that lead out of it, through others or not: those with an
/// absolute path and those that end outside or cannot be followed to an end. Returns how many there were.
std::size_t RemoveOutwardLinks(const std::filesystem::path& folder);

}  // namespace quill::files
