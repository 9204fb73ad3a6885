#pragma once
#include <filesystem>
#include <optional>

#include "practice/page_store.h"
#include "practice/service/notebook_library.h"

namespace quill::practice {

/// The practice notebook's pages as a library: one notebook with the folder's sections in the notebook's
/// order. The folder is read anew for every call, because the notebook's window and other processes write
/// into it too.
class StoreLibrary final : public NotebookLibrary {
 public:
  explicit StoreLibrary(std::filesystem::path folder);

  std::vector<LibraryNotebook> Notebooks() override;
  Result<LibraryContent> Load(std::string_view pageGuid) override;
  Status<> Save(std::string_view pageGuid, const LibraryContent& content) override;

 private:
  std::filesystem::path m_folder;
};

}  // namespace quill::practice
