#include "cli/file_run.h"

#include <fmt/format.h>

#include <any>

#include "cli/console.h"
#include "content/text_between.h"
#include "shell/command_table.h"
#include "shell/content_requests.h"

namespace quill::cli {
namespace {

using platform::recording::Recording;

constexpr std::int64_t kTable2Text = 17, kCopyPlainText = 24;

void Dispatch(shell::NSOneNoteMain& bridge, const FileCommand& command) {
  if (command.number >= 20 && command.number <= 23) {
    bridge.RunInsert(command.number, command.int1, command.int2, command.str3);
  } else if (command.number == kCopyPlainText) {
    bridge.RunOther(command.number, 0, 0);
  } else if (command.number == 25) {
    bridge.RunTitle(command.number, command.int1, 0);
  } else {
    bridge.Run(command.number);
  }
}

/// What a window of figures would show; an empty one is the table that there is not.
void TakeFigures(const Call& call, const Recording& desktop, FileOutcome& outcome) {
  for (const std::any& window : desktop.windows()) {
    const auto* request = std::any_cast<shell::CountRequest>(&window);
    if (request == nullptr) continue;
    outcome.figures = request->rows;
    if (request->rows.empty()) outcome.messages.emplace_back(call.strings.Text("msgLoadTableError"));
  }
}

}  // namespace

FileOutcome RunOnFile(const Call& call, const FileCommand& command, FileInput input,
                      const platform::Clock& clock) {
  shell::Globals globals = shell::OpenGlobals(call.root, clock);
  globals.folders.SettingsFile.clear();
  const std::optional<std::string> copiedText = input.text;
  Recording desktop({std::move(input.html), std::move(input.text), std::nullopt});
  if (input.title) desktop.SetPageTitle(*input.title);
  if (input.file) desktop.AnswerSavePanel(*input.file);
  AnswerDialog(desktop, input.dialog, command.number, copiedText);
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
  const bool leavesText = command.number == kCopyPlainText || command.number == kTable2Text;
  if (leavesText && !desktop.clipboardRestored()) outcome.clipboardText = desktop.clipboard().text;
  outcome.messages = desktop.messages();
  TakeFigures(call, desktop, outcome);
  outcome.missedSavePath = !desktop.savePanels().empty() && !input.file;
  return outcome;
}

std::string PrintedResult(const Call& call, const FileOutcome& outcome, bool bareFragment) {
  if (!outcome.figures.empty()) {
    return tools::TextOf(outcome.figures,
                         [&](std::string_view key) { return std::string(call.strings.Text(key)); });
  }
  if (outcome.clipboardText) return *outcome.clipboardText;
  if (!outcome.paste) return {};
  if (outcome.paste->contents.text) return *outcome.paste->contents.text;
  const std::string html = outcome.paste->contents.html.value_or("");
  const bool hasMarkers = html.find(content::kStartMarker) != std::string::npos;
  return bareFragment && hasMarkers ? std::string(content::CutFragment(html).fragment) : html;
}

}  // namespace quill::cli
