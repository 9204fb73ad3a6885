#include "shell/open_notebook.h"

#include "shell/onenote_main.h"

namespace quill::shell {

void OpenNotebookByLink(CommandContext& context, const CommandRow&) {
  const auto link = platform::RunDialog(context.services.ui, OpenNotebookRequest{});
  if (link) NSOneNoteMain(context.services, context.globals).OpenLocation(*link);
}

}  // namespace quill::shell
