#include "files/store/outward_links.h"

#include <algorithm>
#include <vector>

#include "files/folder_listing.h"

namespace quill::files {
namespace {

namespace fs = std::filesystem;

bool LeadsOut(const fs::path& link, const fs::path& top) {
  std::error_code error;
  const fs::path target = fs::read_symlink(link, error);
  if (error || target.is_absolute()) return true;
  const fs::path end = fs::weakly_canonical(link.parent_path() / target, error);
  if (error) return true;
  return std::mismatch(top.begin(), top.end(), end.begin(), end.end()).first != top.end();
}

/// The links below a folder. A folder that came without rights would hide its own: it gets its owner's.
void FindLinks(const fs::path& folder, std::vector<fs::path>& links) {
  std::error_code error;
  fs::permissions(folder, fs::perms::owner_all, fs::perm_options::add,
                  error);  // what cannot be read holds nothing
  for (const FolderEntry& entry : ListFolder(folder).ValueOr({})) {
    if (entry.isLink) {
      links.push_back(folder / entry.name);
    } else if (entry.isFolder) {
      FindLinks(folder / entry.name, links);
    }
  }
}

}  // namespace

std::size_t RemoveOutwardLinks(const fs::path& folder) {
  std::error_code error;
  const fs::path top = fs::canonical(folder, error);
  if (error) return 0;
  std::vector<fs::path> links;
  FindLinks(top, links);
  // All are judged before the first goes: one may lead out through another.
  std::erase_if(links, [&](const fs::path& link) { return !LeadsOut(link, top); });
  for (const fs::path& link : links) fs::remove(link, error);
  return links.size();
}

}  // namespace quill::files
