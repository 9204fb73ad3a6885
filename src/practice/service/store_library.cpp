#include "practice/service/store_library.h"

#include <utility>

#include "practice/link_parts.h"

namespace quill::practice {
namespace {

std::vector<LibrarySection> SectionsOf(const std::vector<PageEntry>& pages) {
  std::vector<LibrarySection> sections;
  for (const PageEntry& page : pages) {
    if (sections.empty() || sections.back().name != page.address.section) {
      sections.push_back({SectionId(page.address.section), page.address.section, {}, {}});
    }
    sections.back().pages.push_back({page.id, page.title, 0, page.order});
  }
  return sections;
}

}  // namespace

StoreLibrary::StoreLibrary(std::filesystem::path folder) : m_folder(std::move(folder)) {}

std::vector<LibraryNotebook> StoreLibrary::Notebooks() {
  LibraryNotebook notebook{.guid = NotebookId(),
                           .name = std::string(kNotebookName),
                           .isDefault = true,
                           .isShared = false,
                           .accountId = std::string(kAccount),
                           .sections = {}};
  const Result<PageStore> store = PageStore::Open(m_folder, {});
  if (store.ok()) notebook.sections = SectionsOf(store->Pages());
  return {std::move(notebook)};
}

Result<LibraryContent> StoreLibrary::Load(std::string_view pageGuid) {
  const Result<PageStore> store = PageStore::Open(m_folder, {});
  if (!store.ok()) return Failure{store.error()};
  const Result<PageAddress> address = store->Find(pageGuid);
  if (!address.ok()) return Failure{address.error()};
  const Result<Page> page = store->Load(*address);
  if (!page.ok()) return Failure{page.error()};
  return LibraryContent{page->title, page->body};
}

Status<> StoreLibrary::Save(std::string_view pageGuid, const LibraryContent& content) {
  Result<PageStore> store = PageStore::Open(m_folder, {});
  if (!store.ok()) return Failure{store.error()};
  const Result<PageAddress> address = store->Find(pageGuid);
  if (!address.ok()) return Failure{address.error()};
  Result<Page> page = store->Load(*address);
  if (!page.ok()) return Failure{page.error()};
  page->title = content.title;
  page->body = content.body;
  const Result<PageAddress> saved = store->Save(*address, *page);
  if (!saved.ok()) return Failure{saved.error()};
  return Done();
}

}  // namespace quill::practice
