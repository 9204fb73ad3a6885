#include "ui/windows/phonetics/phonetic_view.h"

#include <QAccessible>
#include <QFontInfo>
#include <QLabel>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>
#include <utility>

#include "ui/kit/qt_text.h"
#include "ui/kit/wrapped_label.h"

namespace quill::ui {
namespace {

constexpr double kLargeFont = 1.8;
constexpr double kQuietFont = 0.9;
constexpr int kTextLines = 2;
constexpr int kDetailLines = 2;  ///< two dictionaries at most are asked

void ScaleFont(QWidget& widget, double factor) {
  QFont font = widget.font();
  font.setPointSizeF(QFontInfo(font).pointSizeF() * factor);
  widget.setFont(font);
}

QPlainTextEdit* NewLargeText() {
  auto* text = new QPlainTextEdit;
  ScaleFont(*text, kLargeFont);
  text->setReadOnly(true);
  text->setTabChangesFocus(true);
  text->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  // It has this height unless the window is made larger.
  text->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Ignored);
  const double margins = 2 * (text->document()->documentMargin() + text->frameWidth());
  text->setMinimumHeight(text->fontMetrics().lineSpacing() * kTextLines + static_cast<int>(margins));
  return text;
}

}  // namespace

PhoneticView::PhoneticView(const shell::StringTable& strings, tools::DictionaryHosts hosts)
    : m_strings(strings), m_hosts(std::move(hosts)), m_text(NewLargeText()), m_pages(new QStackedWidget) {
  m_text->setAccessibleName(Text("strPhoneticsResult"));
  m_pages->addWidget(NewSourcePage());
  m_pages->addWidget(NewBusyPage());
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins({});
  column->addWidget(m_text, 1);
  column->addWidget(m_pages);
  ShowNothing();
}

QWidget* PhoneticView::NewSourcePage() {
  auto* page = new QWidget;
  m_summary = NewWrappedLabel({});
  m_detail = NewWrappedLabel({});
  ScaleFont(*m_detail, kQuietFont);
  m_detail->setMinimumHeight(m_detail->fontMetrics().lineSpacing() * kDetailLines);
  auto* column = new QVBoxLayout(page);
  column->setContentsMargins({});
  column->addWidget(m_summary);
  column->addWidget(m_detail, 1);
  return page;
}

QWidget* PhoneticView::NewBusyPage() {
  auto* page = new QWidget;
  auto* label = NewWrappedLabel(Text("strPhoneticsSearching"));
  auto* bar = new QProgressBar;
  bar->setRange(0, 0);
  bar->setTextVisible(false);
  bar->setAccessibleName(label->text());
  auto* stop = new QPushButton(Text("strPhoneticsStop"));
  stop->setAutoDefault(false);
  connect(stop, &QPushButton::clicked, this, &PhoneticView::StopPressed);
  auto* row = new QHBoxLayout;
  row->addWidget(bar, 1);
  row->addWidget(stop);
  auto* column = new QVBoxLayout(page);
  column->setContentsMargins({});
  column->addWidget(label);
  column->addLayout(row);
  column->addStretch(1);
  return page;
}

QString PhoneticView::Text(std::string_view key) const {
  return ToQt(m_strings.Text(key));
}

void PhoneticView::ShowNothing() {
  m_text->clear();
  m_text->setPlaceholderText(Text("strPhoneticsPlaceholder"));
  Tell({}, {});
}

void PhoneticView::ShowBusy() {
  m_pages->setCurrentIndex(1);
}

void PhoneticView::ShowStopped() {
  Tell(Text("strPhoneticsStopped"), {});
}

void PhoneticView::ShowAnswer(const tools::PhoneticAnswer& answer) {
  m_text->setPlainText(ToQt(answer.phonetic));
  m_text->setPlaceholderText({});
  Tell(Summary(answer), answer.source == tools::PhoneticSource::Dictionary ? QString() : Reasons(answer));
}

void PhoneticView::LeaveOutSummary() {
  m_summary->clear();
}

void PhoneticView::Tell(const QString& summary, const QString& detail) {
  m_pages->setCurrentIndex(0);
  m_summary->setText(summary);
  m_detail->setText(detail);
  if (summary.isEmpty()) return;
  QAccessibleEvent alert(m_summary, QAccessible::Alert);
  QAccessible::updateAccessibility(&alert);
}

QString PhoneticView::Summary(const tools::PhoneticAnswer& answer) const {
  switch (answer.source) {
    case tools::PhoneticSource::None:
      return Text("errPhonetics");
    case tools::PhoneticSource::Dictionary:
      return ToQt(m_strings.Format("strPhoneticsFromDictionary",
                                   {tools::DictionaryHostName(*answer.dictionary, m_hosts)}));
    case tools::PhoneticSource::SpeechSynthesizer:
      return Text("strPhoneticsFromSynthesizer");
    case tools::PhoneticSource::Transliteration:
      return Text("strPhoneticsByTransliteration");
  }
  return {};
}

QString PhoneticView::Reasons(const tools::PhoneticAnswer& answer) const {
  QStringList lines;
  for (const tools::DictionaryProblem& problem : answer.problems) {
    if (problem.kind == tools::DictionaryProblemKind::NotConfigured) continue;
    lines += ToQt(m_strings.Format("strPhoneticsReason",
                                   {tools::DictionaryHostName(*problem.dictionary, m_hosts),
                                    std::string(m_strings.Text(tools::DictionaryProblemKey(problem)))}));
  }
  return lines.isEmpty() ? Text("strPhoneticsNoDictionary") : lines.join(u'\n');
}

}  // namespace quill::ui
