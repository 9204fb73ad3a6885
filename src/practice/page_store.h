#pragma once
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/result.h"
#include "practice/page_file.h"

namespace quill::practice {

/// Where a page lies: its section's folder and its file's name without extension.
struct PageAddress {
  std::string section;
  std::string name;

  bool operator==(const PageAddress&) const = default;
};

/// A page as lists show it.
struct PageEntry {
  PageAddress address;
  std::string id;
  std::string title;
  int order = 0;

  bool operator==(const PageEntry&) const = default;
};

/// A page that every new notebook has.
struct BuiltInPage {
  std::string section;
  Page page;
};

/// The pages as files: FOLDER/SECTION/NAME.htm. Every write is atomic. Names that would lead out of the
/// folder are refused everywhere. Symbolic links are no pages. Not thread-safe.
class PageStore {
 public:
  /// Uses `folder`; when it has no page yet, the built-in ones are written into it.
  static Result<PageStore> Open(std::filesystem::path folder, std::vector<BuiltInPage> builtIn);

  /// All pages, sections in the order of their first page, pages by order and then by title.
  std::vector<PageEntry> Pages() const;

  /// Where the page with this id lies. `guess` is looked at first. Fails when there is no such page.
  Result<PageAddress> Find(std::string_view id, const PageAddress& guess = {}) const;

  /// Files over 64 MiB are refused. A file without an id (placed there by hand) gets one that is made from
  /// its address; the first `Save` makes it the page's own.
  Result<Page> Load(const PageAddress& address) const;

  /// Writes the page; its file is renamed when the title has changed. The address it has now.
  Result<PageAddress> Save(const PageAddress& address, const Page& page);

  /// Makes an empty page at the end of a section.
  Result<PageAddress> Create(const std::string& section, const std::string& title);

  Status<> Delete(const PageAddress& address);

  /// Brings every built-in page back to its first state; pages that the user made stay.
  Status<> Reset();

  const std::filesystem::path& Folder() const { return m_folder; }

  /// The file of a page, whether or not it is there.
  std::filesystem::path FileOf(const PageAddress& address) const;

 private:
  PageStore(std::filesystem::path folder, std::vector<BuiltInPage> builtIn);
  std::string FreeName(const std::string& section, const std::string& title) const;

  std::filesystem::path m_folder;
  std::vector<BuiltInPage> m_builtIn;
};

}  // namespace quill::practice
