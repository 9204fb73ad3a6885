#include "cli/file_run.h"

#include <fmt/format.h>

#include "cli/console.h"
#include "content/text_between.h"
#include "shell/command_table.h"

namespace quill::cli {
namespace {

using platform::recording::Recording;

void Dispatch(shell::NSOneNoteMain& bridge, std::int64_t number, std::int64_t int1, std::string_view str3) {
  if (number >= 20 && number <= 23) {
    bridge.RunInsert(number, int1, 0, str3);
  } else if (number == 24) {
    bridge.RunOther(number, 0, 0);
  } else if (number == 25) {
    bridge.RunTitle(number, int1, 0);
  } else {
    bridge.Run(number);
  }
}

}  // namespace

FileOutcome RunOnFile(const Call& call, std::int64_t number, std::int64_t int1, std::string_view str3,
                      FileInput input, const platform::Clock& clock) {
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
    Dispatch(bridge, number, int1, str3);
    outcome.result = bridge.OperationResult();
  }
  if (!desktop.pastes().empty()) outcome.paste = desktop.pastes().back();
  if (number == 24 && !desktop.clipboardRestored()) outcome.clipboardText = desktop.clipboard().text;
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
