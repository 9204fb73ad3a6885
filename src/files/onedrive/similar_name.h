#pragma once
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "files/folder_listing.h"

namespace quill::files {

/// The entry whose name means the same to a reader: composed or decomposed letters, small or large ones,
/// blanks that break or not. A difference in letter size comes last; among equals the first in byte order.
/// Nothing when there is none, or when the name is not UTF-8. O(entries).
std::optional<std::string> FindSimilarName(const std::vector<FolderEntry>& entries, std::string_view name);

}  // namespace quill::files
