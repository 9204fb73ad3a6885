#pragma once
#include <filesystem>
#include <vector>

#include "files/store/notebook_list.h"

namespace quill::shell {

/// What `MWinFolder` answers: the notebooks with their check marks, and the folder that receives the
/// packages.
struct PackageChoice {
  std::vector<files::MAFolder> notebooks;
  std::filesystem::path target;
};

/// `MWinFolder`: which of these notebooks to pack, and where to.
struct PackageRequest {
  using Answer = PackageChoice;
  std::vector<files::MAFolder> notebooks;
};

}  // namespace quill::shell
