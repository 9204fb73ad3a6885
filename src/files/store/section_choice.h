#pragma once
#include <filesystem>
#include <string>
#include <vector>

#include "files/folder_listing.h"
#include "platform/file_dates.h"

namespace quill::files {

/// A section's newest version among the entries of a folder.
struct ChosenSection {
  std::size_t entry;  ///< its place in the listing
  std::string name;   ///< the section's own name, such as "A.one" for "A.one (x).one"
};

/// The newest version of each section in a folder's listing, in the listing's order.
///
/// Versions are files with ").one" in their names; the section's name goes up to the first ".one". A version
/// counts as the newest unless an entry whose name begins with the section's was created after it; of equally
/// old ones the first is taken. So a section of which a plain file or a folder is newer than every version is
/// not chosen. Entries that have vanished count as the oldest. Asks for the date of no entry twice, and for
/// none where there is no choice. O(entries).
std::vector<ChosenSection> ChooseSections(const std::filesystem::path& folder,
                                          const std::vector<FolderEntry>& entries,
                                          const platform::FileDates& dates);

}  // namespace quill::files
