#pragma once
#include <string>

#include "shell/command_table.h"

namespace quill::shell {

/// `MWinOpenNotebookByLink`: asks for a link of OneNote. The answer is a normalised client link.
struct OpenNotebookRequest {
  using Answer = std::string;
};

/// Asks for a link and opens it in OneNote.
void OpenNotebookByLink(CommandContext& context, const CommandRow& row);

}  // namespace quill::shell
