#include "cli/temporary_folder.h"

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <string>

#include "cli/console.h"

namespace quill::cli {

namespace fs = std::filesystem;

TemporaryFolder::TemporaryFolder() {
  std::error_code error;
  fs::path parent = fs::temp_directory_path(error);
  if (!error) parent = fs::absolute(parent, error);
  if (error) throw Stop(kWorkFailed, "the folder for temporary files: " + error.message());
  std::string name = (parent / "quill-XXXXXX").string();
  if (::mkdtemp(name.data()) == nullptr)
    throw Stop(kWorkFailed, parent.string() + ": " + std::strerror(errno));
  m_path = name;
}

TemporaryFolder::~TemporaryFolder() {
  std::error_code error;
  fs::remove_all(m_path, error);
}

}  // namespace quill::cli
