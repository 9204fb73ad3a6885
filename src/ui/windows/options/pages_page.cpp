#include "ui/windows/options/pages_page.h"

#include <QCheckBox>
#include <QFormLayout>
#include <QLabel>

#include "tools/date_text.h"
#include "ui/kit/qt_text.h"
#include "ui/windows/options/setting_controls.h"

namespace quill::ui {
namespace {

constexpr int kMostPages = 1'000'000;

}  // namespace

PagesPage::PagesPage(OptionsDesk& desk) : OptionPage(desk) {
  AddWatch();
  Add(new CheckField(desk, "CalendarStartWithMonday", Text("strOptionsMonday")));
  AddJournal();
  Refresh();
}

void PagesPage::AddWatch() {
  auto* watch = new CheckField(desk(), "MonitorPageTotal", Text("strOptionsWatch"));
  watch->Explain(Text("strOptionsWatchHelp"));
  auto* most = new NumberField(desk(), "AlertOnDelPageNum", {0, kMostPages});
  Add(watch);
  Add(most, "strOptionsAlert");
  QWidget* label = form().labelForField(most);
  const auto enable = [most, label](bool on) {
    most->setEnabled(on);
    label->setEnabled(on);
  };
  connect(&watch->box(), &QCheckBox::toggled, most, enable);
  enable(watch->box().isChecked());
}

void PagesPage::AddJournal() {
  auto* pattern = new TextField(desk(), "JournalDayFormat");
  pattern->Explain(Text("strOptionsJournalHelp"));
  Add(pattern, "strOptionsJournal");
  m_preview = new QLabel;
  m_preview->setObjectName(QStringLiteral("preview"));
  m_preview->setTextFormat(Qt::PlainText);
  m_preview->setWordWrap(true);
  m_preview->setTextInteractionFlags(Qt::TextSelectableByMouse);
  form().addRow(new QLabel(Text("strOptionsJournalToday")), m_preview);  // no buddy: it takes no keyboard
  pattern->OnText([this](const std::string& text) {
    m_pattern = text;
    ShowPreview();
  });
}

void PagesPage::ShowFacts() {
  ShowPreview();  // it may be another day
}

void PagesPage::ShowPreview() {
  if (m_preview == nullptr) return;
  const std::string title = tools::JournalTitle(m_pattern, desk().facts().now());
  m_preview->setText(title.empty() ? Text("strOptionsJournalNone") : ToQt(title));
}

}  // namespace quill::ui
