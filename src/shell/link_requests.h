#pragma once
#include <cstddef>
#include <vector>

#include "files/links/link_fields.h"
#include "files/links/variable_link.h"
#include "files/onedrive/onedrive_app.h"

namespace quill::shell {

// The dialogs of the commands for links to files. A command waits for each of them (`platform::RunDialog`).

/// `MWinCloudFileAttachment`: which of several local copies is opened, as its index.
struct CloudFilesRequest {
  using Answer = std::size_t;
  std::vector<files::MAOneDriveFile> files;
};

/// `MWinVarLink`: text and path of the link that is inserted.
struct VarLinkRequest {
  using Answer = files::LinkFields;
  files::LinkFields fields;    ///< what it begins with
  files::VariableRoots roots;  ///< for paths that are chosen, and to show what a path means here
};

}  // namespace quill::shell
