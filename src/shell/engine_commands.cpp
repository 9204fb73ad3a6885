#include "shell/engine_commands.h"

#include <chrono>
#include <filesystem>
#include <mutex>
#include <optional>
#include <string>

#include "shell/command_table.h"
#include "shell/engine_requests.h"
#include "shell/equation_request.h"
#include "shell/highlighter.h"
#include "shell/onenote_main.h"
#include "shell/save_notice.h"
#include "shell/transform_table.h"
#include "tools/phonetics.h"
#include "tools/recent_formulas.h"

namespace quill::shell {
namespace {

constexpr std::int64_t kInsertHtml = 23;

tools::HighlightRequest RememberedLook(const Settings& settings) {
  tools::HighlightRequest look;
  look.language = settings.Syntax_Lang;
  look.theme = settings.Syntax_Theme;
  look.font = settings.Syntax_Font;
  look.fontSize = settings.Syntax_FontSize;
  look.hasLineNumbers = settings.Syntax_LineNumbers;
  look.frame = {settings.Syntax_FrameUp, settings.Syntax_Bold, settings.Syntax_Shaping};
  return look;
}

void RememberLook(CommandContext& context, const tools::HighlightRequest& look) {
  Settings& settings = context.globals.settings;
  settings.Syntax_Lang = look.language;
  settings.Syntax_Theme = look.theme;
  settings.Syntax_Font = look.font;
  settings.Syntax_FontSize = look.fontSize;
  settings.Syntax_LineNumbers = look.hasLineNumbers;
  settings.Syntax_FrameUp = look.frame.isFramed;
  settings.Syntax_Bold = look.frame.isBold;
  settings.Syntax_Shaping = look.frame.color;
  SayUnlessSaved(context.services, SaveSettings(context.globals));
}

/// A run of the highlighter with its files in this folder. One at a time: a window that was closed may still
/// be ending its run when the next one begins.
HighlightCode HighlightIn(const std::filesystem::path& folder, const std::string& program,
                          const Engines& engines) {
  return [folder, program, processes = engines.processes, turn = engines.highlighting](
             const tools::HighlightRequest& request,
             const IsCancelled& isCancelled) -> Result<std::string, tools::HighlightFailure> {
    if (processes == nullptr)
      return Failure{tools::HighlightFailure{tools::HighlightProblem::NoHighlighter, {}}};
    std::unique_lock<std::timed_mutex> lock(*turn, std::defer_lock);
    while (!lock.try_lock_for(std::chrono::milliseconds(50))) {
      if (isCancelled && isCancelled())
        return Failure{tools::HighlightFailure{tools::HighlightProblem::Cancelled, {}}};
    }
    tools::HighlightTools tools{*processes, program, folder};
    tools.isCancelled = isCancelled;
    return tools::Highlight(request, tools);
  };
}

/// The search of a word in the dictionaries of this user's choice.
FindPhonetic PhoneticSearch(const Engines& engines, const Settings& settings) {
  const tools::PhoneticLastResorts resorts{settings.Phonetics_Synthesizer,
                                           settings.Phonetics_Transliteration};
  return [=](const std::string& language, const std::string& word, const IsCancelled& isCancelled) {
    if (engines.processes == nullptr || engines.http == nullptr) return tools::PhoneticAnswer();
    return tools::FindPhonetic(
        {language, word, tools::FirstDictionarySet(engines.preferredLanguage), isCancelled},
        engines.dictionaries, resorts, *engines.http, *engines.processes);
  };
}

std::optional<std::string> AskForPhonetic(TransformContext& context, const std::string& word) {
  Settings& settings = context.globals.settings;
  const auto chosen = platform::RunDialog(
      context.services.ui,
      PhoneticsRequest{word, settings.Phonetics_Language, PhoneticSearch(context.services.engines, settings),
                       context.services.engines.dictionaries});
  if (!chosen) return std::nullopt;
  if (settings.Phonetics_Language != chosen->language) {
    settings.Phonetics_Language = chosen->language;
    SayUnlessSaved(context.services, SaveSettingRows(context.globals, {"Phonetics_Language"}));
  }
  if (chosen->phonetic.empty()) return std::nullopt;
  return chosen->phonetic;
}

}  // namespace

void SyntaxHighlight(CommandContext& context, const CommandRow&) {
  const std::shared_ptr<platform::ProcessRunner>& processes = context.services.engines.processes;
  const std::string program =
      processes != nullptr ? FindHighlighter(context.globals.settings, *processes).path : std::string();
  const std::filesystem::path folder = context.globals.folders.TmpFolder;
  const std::filesystem::path previews = folder / "preview";
  std::error_code ignored;  // the preview says what it cannot write
  std::filesystem::create_directory(previews, ignored);
  const auto chosen = platform::RunDialog(
      context.services.ui, SyntaxHighlightRequest{RememberedLook(context.globals.settings),
                                                  HighlightIn(folder, program, context.services.engines),
                                                  HighlightIn(previews, program, context.services.engines)});
  if (!chosen) return;
  RememberLook(context, chosen->request);
  if (!chosen->html.empty()) NSOneNoteMain(context.services, context.globals).RunInsertHtml(chosen->html);
}

void LaTeXEquation(CommandContext& context, const CommandRow&) {
  std::string& remembered = context.globals.settings.RecentFormulas;
  tools::RecentFormulas recent = tools::RecentFormulas::FromText(remembered);
  const auto chosen = platform::RunDialog(
      context.services.ui,
      EquationRequest{{}, recent.Items(), false, context.globals.settings.MathJaxAddress});
  if (!chosen) return;
  NSOneNoteMain(context.services, context.globals).RunInsert(kInsertHtml, 0, 0, chosen->html);
  recent.Add(chosen->formula);
  remembered = recent.ToText();
  SayUnlessSaved(context.services, SaveSettingRows(context.globals, {"RecentFormulas"}));
}

std::int64_t InsertPhonetics(TransformContext& context) {
  const tools::PhoneticInsertion insertion = tools::InsertPhonetics(
      context.fragment, [&](const std::string& word) { return AskForPhonetic(context, word); });
  if (insertion.isNotWellFormed) context.bridge.ShowMessage("Xml error!");
  if (insertion.result > 0) context.fragment = insertion.html;
  return insertion.result;
}

}  // namespace quill::shell
