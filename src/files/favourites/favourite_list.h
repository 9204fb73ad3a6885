#pragma once
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "base/result.h"
#include "files/config.h"

namespace quill::files {

/// A bookmark: a page's or a section's id, and the link by which it is opened.
struct Favourite {
  std::string id;
  std::string link;
  bool operator==(const Favourite&) const = default;
};

/// The bookmarks of one kind, as they stand in their file when the object is made. A change writes the whole
/// file, so an object is for one look or one change. What is in the file and is no text is no bookmark and
/// stays there.
class FavouriteList {
 public:
  /// Reads the file; a missing one is an empty list, and so is a damaged one (see `Problem`).
  explicit FavouriteList(const std::filesystem::path& file) : m_config(file) {}

  /// In the file's order, which is the order of the first adding.
  std::vector<Favourite> All() const;

  /// "" when there is none.
  std::string LinkOf(std::string_view id) const { return m_config.ReadString(id, ""); }

  /// Adds a bookmark, or gives the one with this id its new link, and saves. A damaged file is set aside
  /// first
  /// (`MConfig::DamagedCopy`).
  Status<> Add(std::string_view id, std::string_view link);

  /// Takes a bookmark away and saves; one that is not there is no failure and saves nothing.
  Status<> Remove(std::string_view id);

  /// What is wrong with the file, naming it; "" when nothing is.
  const std::string& Problem() const { return m_config.Problem(); }

 private:
  MConfig m_config;
};

/// The second of exactly two lines: a copied page link is a web address and then the link. "" for any other
/// number of lines; a carriage return with its line feed are two line breaks. O(text).
std::string_view LinkOfCopiedLines(std::string_view text);

}  // namespace quill::files
