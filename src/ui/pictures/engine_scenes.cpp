#include "ui/pictures/engine_scenes.h"

#include <optional>

#include "shell/engine_requests.h"
#include "tools/phonetics_dictionaries.h"
#include "ui/kit/page_preview.h"
#include "ui/pictures/scene_parts.h"
#include "ui/windows/phonetics/win_phonetics.h"
#include "ui/windows/syntax/win_syntax_highlight.h"
#include "ui/windows/text/exact_text_edit.h"

namespace quill::ui {
namespace {

constexpr const char* kCode =
    "# Watering by the week\n"
    "def litres(beds, rain):\n"
    "    need = 12 * len(beds)\n"
    "    return max(0, need - rain)\n\n"
    "print(litres([\"north\", \"south\"], 9))\n";

constexpr const char* kColoured =
    "<table border=1 bgcolor='#FFFFFF'><tr><td><pre style=\"font-family:'DejaVu Sans Mono'; font-size:11pt\">"
    "<span style=\"color:#007f1c\"># Watering by the week</span><br>"
    "<span style=\"color:#b000b0\">def</span> litres(beds, rain):<br>"
    "&nbsp;&nbsp;&nbsp;&nbsp;need = <span style=\"color:#2300ff\">12</span> * len(beds)<br>"
    "&nbsp;&nbsp;&nbsp;&nbsp;<span style=\"color:#b000b0\">return</span> max(<span "
    "style=\"color:#2300ff\">0</span>, need - "
    "rain)<br><br>"
    "print(litres([<span style=\"color:#d00000\">\"north\"</span>, <span "
    "style=\"color:#d00000\">\"south\"</span>], "
    "<span style=\"color:#2300ff\">9</span>))<br></pre></td></tr></table>";

Look OpenSyntax(Studio& studio) {
  const shell::HighlightCode highlight = [](const tools::HighlightRequest&, const shell::IsCancelled&)
      -> Result<std::string, tools::HighlightFailure> { return std::string(kColoured); };
  tools::HighlightRequest look;
  look.language = "Object C";
  look.theme = "XCode";
  look.font = "DejaVu Sans Mono";
  look.fontSize = "11";
  look.frame = {true, false, "#FFFFFF"};
  auto* window = new MWinSyntaxHighlight(studio.strings, {look, highlight, highlight},
                                         [](const std::optional<shell::SyntaxChoice>&) {});
  window->findChild<ExactTextEdit*>()->setPlainText(QString::fromLatin1(kCode));
  BringToFront(*window);
  return [window = QPointer(window)]() -> QList<QWidget*> {
    if (!window || !window->findChild<PagePreview*>()->toPlainText().contains(QLatin1String("litres")))
      return {};
    return {window};
  };
}

Look OpenPhonetics(Studio& studio) {
  const shell::FindPhonetic find = [](const std::string&, const std::string&, const shell::IsCancelled&) {
    tools::PhoneticAnswer answer;
    answer.phonetic = "kɔːˈʒɛt";
    answer.source = tools::PhoneticSource::SpeechSynthesizer;
    return answer;
  };
  auto* window = new MWinPhonetics(studio.strings, {"courgette", "English", find},
                                   [](const std::optional<shell::PhoneticChoice>&) {});
  BringToFront(*window);
  return [window = QPointer(window)]() -> QList<QWidget*> {
    if (!window || window->findChild<QPlainTextEdit*>()->toPlainText().isEmpty()) return {};
    return {window};
  };
}

}  // namespace

std::vector<Scene> EngineScenes() {
  return {{QStringLiteral("source-code"), OpenSyntax}, {QStringLiteral("phonetics"), OpenPhonetics}};
}

}  // namespace quill::ui
