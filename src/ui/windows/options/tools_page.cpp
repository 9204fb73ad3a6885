#include "ui/windows/options/tools_page.h"

#include <QPointer>
#include <QPushButton>
#include <memory>

#include "ui/kit/file_panels.h"
#include "ui/kit/qt_text.h"
#include "ui/windows/options/setting_controls.h"

namespace quill::ui {
namespace {

constexpr const char* kUsualProgramFolder = "/usr/bin";

}  // namespace

ToolsPage::ToolsPage(OptionsDesk& desk) : OptionPage(desk) {
  AddHighlighter();
  AddPhonetics();
  AddMathJax();
  Refresh();
}

void ToolsPage::AddHighlighter() {
  auto* path = new TextField(desk(), "HighlighterPath", OuterSpaces::Dropped);
  path->ShowWhenEmpty(Text("strOptionsHighlighterFound"));
  auto* choose = new QPushButton(Text("strOptionsChooseProgram"));
  choose->setObjectName(QStringLiteral("chooseHighlighter"));
  choose->setAutoDefault(false);
  choose->setAccessibleDescription(WithoutColon(Text("strOptionsHighlighter")));
  connect(choose, &QPushButton::clicked, this, [this, path] { ChooseProgram(*path); });
  path->AddButton(choose);
  path->Explain(Text("strOptionsHighlighterHelp"));
  Add(path, "strOptionsHighlighter");
}

void ToolsPage::ChooseProgram(TextField& field) {
  platform::OpenPanel panel;
  panel.title = desk().strings().Text("titleOptionsPickProgram");
  panel.folder = std::filesystem::path(desk().Text(field.key())).parent_path();
  if (panel.folder.empty()) panel.folder = kUsualProgramFolder;
  // Not the memory of the other panels: whoever saves a document next does not want it among programs.
  const auto memory = std::make_shared<PanelMemory>();
  ShowOpenPanel(
      desk().strings(), *memory, panel,
      [memory, target = QPointer<TextField>(&field)](const std::vector<std::filesystem::path>& chosen) {
        if (!target) return;
        target->window()->activateWindow();
        if (!chosen.empty()) target->Enter(chosen.front().string());
      });
}

void ToolsPage::AddPhonetics() {
  auto* synthesizer = new CheckField(desk(), "Phonetics_Synthesizer", Text("strOptionsSynthesizer"));
  synthesizer->Explain(Text("strOptionsSynthesizerHelp"));
  Add(synthesizer);
  auto* letters = new CheckField(desk(), "Phonetics_Transliteration", Text("strOptionsTransliteration"));
  letters->Explain(Text("strOptionsTransliterationHelp"));
  Add(letters);
}

void ToolsPage::AddMathJax() {
  auto* address = new TextField(desk(), "MathJaxAddress", OuterSpaces::Dropped);
  address->ShowWhenEmpty(Text("strOptionsMathJaxFiles"));
  address->Explain(Text("strOptionsMathJaxHelp"));
  Add(address, "strOptionsMathJax");
}

}  // namespace quill::ui
