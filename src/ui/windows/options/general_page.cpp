#include "ui/windows/options/general_page.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QPushButton>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include "shell/language.h"
#include "ui/kit/qt_text.h"
#include "ui/windows/options/setting_controls.h"

namespace quill::ui {
namespace {

constexpr int kLongestWait = 60'000;  // milliseconds
constexpr int kWaitStep = 100;
constexpr int kMicroseconds = 1000;

}  // namespace

GeneralPage::GeneralPage(OptionsDesk& desk) : OptionPage(desk) {
  std::vector<std::pair<std::string, QString>> languages{{"", Text("strOptionsLanguageSystem")}};
  for (const shell::Language& language : shell::Languages()) {
    languages.emplace_back(language.tag, ToQt(language.name));
  }
  Add(new ChoiceField(desk, "Language", languages), "strOptionsLanguage");

  Add(new CheckField(desk, "OneAppBackup_Enable", Text("strOptionsDailyBackups")));
  auto* backups = new QWidget;
  auto* row = new QHBoxLayout(backups);
  row->setContentsMargins({});
  row->addSpacing(ExplanationIndent(QCheckBox()));
  row->addWidget(NewActionButton("menuBackups", "MenuItemBackupsClick"));
  row->addStretch(1);
  AddRow(backups);

  auto* wait = new NumberField(desk, "Perform_Timeout",
                               {0, kLongestWait, kWaitStep, kMicroseconds, Text("strOptionsMilliseconds")});
  wait->Explain(Text("strOptionsWaitHelp"));
  Add(wait, "strOptionsWait");

  if (desk.facts().hasTargetWindowPattern) {
    auto* pattern = new TextField(desk, "TargetWindowPattern");
    pattern->Explain(Text("strOptionsTargetHelp"));
    Add(pattern, "strOptionsTarget");
  }

  m_exportLog = new QCheckBox(Text("strOptionsExportLog"));
  connect(m_exportLog, &QCheckBox::toggled, this, [this](bool on) {
    if (this->desk().handlers().setExportLog) this->desk().handlers().setExportLog(on);
  });
  auto* log = new QWidget;
  auto* column = new QVBoxLayout(log);
  column->setContentsMargins({});
  column->addWidget(m_exportLog);
  AddExplanation(*column, *m_exportLog, Text("strOptionsExportLogHelp"));
  AddRow(log);
  Refresh();
}

void GeneralPage::ShowFacts() {
  const QSignalBlocker quiet(m_exportLog);
  m_exportLog->setChecked(desk().facts().exportLog);
}

}  // namespace quill::ui
