#pragma once
#include <string>
#include <vector>

#include "online/notebook_list.h"
#include "online/pane_headings.h"

namespace quill::online {

// The windows that online commands ask for.

/// `MWinNavigatePane`: the headings of a page.
struct NavigatePaneRequest {
  std::string pageTitle;
  std::string pageClientLink;
  std::vector<PaneHeading> headings;
};

/// `MWinNotebook`: the notebooks of the account.
struct NotebookListRequest {
  std::string notebooksBody;  ///< the service's list, with all that it says about each
  std::string recentBody;     ///< likewise, of those used lately
};

}  // namespace quill::online
