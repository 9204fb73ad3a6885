#include "cli/file_run.h"

#include <fmt/format.h>

#include "cli/console.h"
#include "content/text_between.h"
#include "shell/command_table.h"

namespace quill::cli {
namespace {

using platform::recording::Recording;

void Dispatch(shell::NSOneNoteMain& bridge, const FileCommand& command) {
  if (command.number >= 20 && command.number <= 23) {
    bridge.RunInsert(command.number, command.int1, command.int2, command.str3);
  } else if (command.number == 24) {
    bridge.RunOther(command.number, 0, 0);
  } else if (command.number == 25) {
    bridge.RunTitle(command.number, command.int1, 0);
  } else {
    bridge.Run(command.number);
  }
}

}  // namespace

FileOutcome RunOnFile(const Call& call, const FileCommand& command, FileInput input,
                      const platform::Clock& clock) {
  shell::Globals globals = shell::OpenGlobals(call.root, clock);
  Recording desktop({std::move(input.html), std::move(input.text), std::nullopt});
  if (input.title) desktop.SetPageTitle(*input.title);
  if (input.file) desktop.AnswerSavePanel(*input.file);
  shell::Explain explain = MakeExplain(call);
  shell::Log log;
  shell::Services services{desktop, desktop, desktop, desktop, clock, call.strings, explain, log};
  FileOutcome outcome;
  {
    shell::NSOneNoteMain bridge(services, globals);
    Dispatch(bridge, command);
    outcome.result = bridge.OperationResult();
  }
  if (!desktop.pastes().empty()) outcome.paste = desktop.pastes().back();
  if (command.number == 24 && !desktop.clipboardRestored()) outcome.clipboardText = desktop.clipboard().text;
  outcome.messages = desktop.messages();
  outcome.missedSavePath = !desktop.savePanels().empty() && !input.file;
  return outcome;
}

std::string PrintedResult(const FileOutcome& outcome, bool bareFragment) {
  if (outcome.clipboardText) return *outcome.clipboardText;
  if (!outcome.paste) return {};
  if (outcome.paste->contents.text) return *outcome.paste->contents.text;
  const std::string html = outcome.paste->contents.html.value_or("");
  return bareFragment ? std::string(content::CutFragment(html).fragment) : html;
}

}  // namespace quill::cli
