#include "shell/program_actions.h"

#include <fmt/format.h>

#include "files/store/onenote_store.h"
#include "shell/command_table.h"
#include "shell/embedded_files.h"
#include "shell/onenote_main.h"
#include "shell/save_notice.h"
#include "shell/window_requests.h"

namespace quill::shell {
namespace {

constexpr std::string_view kOneNoteBundle = "/Applications/Microsoft OneNote.app";

void Say(CommandContext& context, std::string_view key) {
  context.services.ui.ShowMessage(context.services.strings.Text(key));
}

/// Tells why the system did not open something.
void SayUnlessOpened(CommandContext& context, const Status<>& opened) {
  if (opened.ok()) return;
  context.services.ui.ShowMessage(context.services.strings.Format("errOpen", {opened.error()}));
}

}  // namespace

void StartWithMonday(CommandContext& context, const CommandRow&) {
  bool& monday = context.globals.settings.CalendarStartWithMonday;
  monday = !monday;
  const Status<> saved = SaveSettings(context.globals);
  if (saved.ok()) return;
  monday = !monday;
  SayUnlessSaved(context.services, saved);
}

void InsertHorizontalLine(CommandContext& context, const CommandRow&) {
  SelectionBridge(context.services, context.globals).PastePngBytes(kHLinePng, PasteMode::AtCaret);
}

void RunOneNote(CommandContext& context, const CommandRow&) {
  if (!context.services.desktop.ApplicationInstalled(kOneNoteBundle)) {
    return Say(context, "errorNotFoundOneNote");
  }
  const platform::ScriptResult shown =
      context.services.desktop.RunScript(context.globals.scripts.ScriptActivate);
  if (shown.ok()) return;
  context.services.ui.ShowMessage(
      context.services.strings.Format(platform::ScriptProblemKey(shown.problem), {shown.detail}));
}

void ShowCacheFolder(CommandContext& context, const CommandRow&) {
  SayUnlessOpened(context, context.services.workspace.Reveal(context.globals.folders.roots.userLibrary /
                                                             files::kOneNoteDataFolder));
}

void ImportNotebook(CommandContext& context, const CommandRow&) {
  Say(context, "msgImportNotebook");
  const std::string page = context.globals.endpoints.webApp + "/notebooks/exportimport?toImport=true";
  SayUnlessOpened(context, context.services.workspace.OpenUrl(page));
}

void TestCopyFromOneNote(CommandContext& context, const CommandRow& row) {
  SelectionBridge bridge(context.services, context.globals);
  const std::string html = bridge.CopySelectionHtml();
  if (html.empty()) return bridge.ShowCopyProblem();
  context.services.ui.ShowWindow(TextRequest{std::string(context.services.strings.Text(row.titleKey)), html});
}

void TestCopyFromClipboard(CommandContext& context, const CommandRow& row) {
  platform::Pasteboard& pasteboard = context.services.pasteboard;
  std::string names;
  for (const std::string& name : pasteboard.FlavourNames()) names.append(name).append("\n");
  const std::string text = pasteboard.Read(platform::Flavour::Text).ValueOr("");
  context.services.ui.ShowWindow(TextRequest{std::string(context.services.strings.Text(row.titleKey)),
                                             fmt::format("Clipboard types:\n{}\n\n\n{}", names, text)});
}

}  // namespace quill::shell
