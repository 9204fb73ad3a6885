#include "ui/windows/monitor/win_pages_number.h"

#include <QAccessible>
#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>
#include <QStackedWidget>
#include <QStyle>
#include <QVBoxLayout>

#include "ui/kit/page_mnemonics.h"
#include "ui/kit/qt_text.h"
#include "ui/kit/wrapped_label.h"
#include "ui/windows/monitor/page_chart.h"
#include "ui/windows/text/quiet_note.h"

namespace quill::ui {
namespace {

constexpr int kNewsEveryMs = 1000;

QString MomentText(std::int64_t seconds, const QLocale& locale) {
  return locale.toString(QDateTime::fromSecsSinceEpoch(seconds), QLocale::ShortFormat);
}

}  // namespace

MWinPagesNumber::MWinPagesNumber(const shell::StringTable& strings, PagesHandlers handlers)
    : ToolWindow(strings, "titlePagesNumber"), m_handlers(std::move(handlers)) {
  auto* column = new QVBoxLayout(this);
  column->addWidget(NewWarning());
  column->addWidget(NewTotal());
  column->addWidget(NewChart(strings), 1);
  column->addWidget(NewButtons());
  CreateTimer();
  AssignMnemonics(*this, {});
  m_refresh->setFocus();
}

QWidget* MWinPagesNumber::NewWarning() {
  m_warning = new QWidget;
  m_warning->setObjectName(QStringLiteral("warning"));
  auto* row = new QHBoxLayout(m_warning);
  row->setContentsMargins({});
  auto* sign = new QLabel;
  const int size = style()->pixelMetric(QStyle::PM_LargeIconSize);
  sign->setPixmap(
      style()->standardIcon(QStyle::SP_MessageBoxWarning).pixmap(QSize(size, size), devicePixelRatio()));
  m_warningText = NewWrappedLabel({});
  m_warningText->setAlignment(Qt::AlignLeading | Qt::AlignVCenter);
  QFont bold = m_warningText->font();
  bold.setBold(true);
  m_warningText->setFont(bold);
  row->addWidget(sign);
  row->addWidget(m_warningText, 1);
  m_warning->hide();
  return m_warning;
}

QWidget* MWinPagesNumber::NewTotal() {
  auto* part = new QWidget;
  auto* column = new QVBoxLayout(part);
  column->setContentsMargins({});
  m_total = new QLabel;
  m_total->setObjectName(QStringLiteral("tfPageNumber"));
  m_total->setTextFormat(Qt::PlainText);
  m_total->setTextInteractionFlags(Qt::TextSelectableByMouse);
  QFont large = m_total->font();
  large.setPointSizeF(large.pointSizeF() * 2);
  m_total->setFont(large);
  m_state = new QuietNote;
  m_state->setObjectName(QStringLiteral("state"));
  auto* row = new QHBoxLayout;
  row->addWidget(new QLabel(Text("strPagesTotal")), 0, Qt::AlignBaseline);
  row->addWidget(m_total, 0, Qt::AlignBaseline);
  row->addStretch(1);
  column->addLayout(row);
  column->addWidget(m_state);
  return part;
}

QWidget* MWinPagesNumber::NewChart(const shell::StringTable& strings) {
  m_stack = new QStackedWidget;
  auto* page = new QWidget;
  auto* column = new QVBoxLayout(page);
  column->setContentsMargins({});
  auto* title = new QLabel(Text("strPagesChart"));
  m_chart = new PageChart(strings);
  title->setBuddy(m_chart);
  m_point = NewWrappedLabel({});
  m_point->setObjectName(QStringLiteral("point"));
  m_point->setMinimumHeight(fontMetrics().lineSpacing());
  connect(m_chart, &PageChart::CurrentChanged, this, [this] { ShowCurrentPoint(); });
  column->addWidget(title);
  column->addWidget(m_chart, 1);
  column->addWidget(m_point);
  QLabel* nothing = NewWrappedLabel(Text("strPagesNoHistory"));
  nothing->setAlignment(Qt::AlignCenter);
  m_stack->addWidget(new QWidget);  // until the history has been read
  m_stack->addWidget(nothing);
  m_stack->addWidget(page);
  return m_stack;
}

QWidget* MWinPagesNumber::NewButtons() {
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close);
  QPushButton* close = buttons->button(QDialogButtonBox::Close);
  close->setText(Text("strClose"));
  close->setAutoDefault(false);
  m_refresh = buttons->addButton(Text("strPagesRefresh"), QDialogButtonBox::ActionRole);
  m_history = buttons->addButton(Text("strPagesHistory"), QDialogButtonBox::ActionRole);
  for (QPushButton* button : {m_refresh, m_history}) {
    button->setAutoDefault(false);
    button->setEnabled(false);
  }
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  connect(m_refresh, &QPushButton::clicked, this, [this] {
    m_warning->hide();
    m_handlers.countNow();
    m_handlers.askFacts();
  });
  connect(m_history, &QPushButton::clicked, this, [this] { m_handlers.openHistory(); });
  return buttons;
}

void MWinPagesNumber::CreateTimer() {
  m_timer.setInterval(kNewsEveryMs);
  connect(&m_timer, &QTimer::timeout, this, [this] { TimerRun(); });
}

void MWinPagesNumber::TimerRun() {
  const bool isTaken =
      QApplication::activeModalWidget() != nullptr || QApplication::activePopupWidget() != nullptr;
  if (!isTaken && !isMinimized()) m_handlers.askFacts();
}

void MWinPagesNumber::showEvent(QShowEvent* event) {
  ToolWindow::showEvent(event);
  m_timer.start();
  m_handlers.askFacts();
}

void MWinPagesNumber::hideEvent(QHideEvent* event) {
  m_timer.stop();
  ToolWindow::hideEvent(event);
}

QString MWinPagesNumber::StateText(const PagesFacts& facts) const {
  const online::PageTotals& pages = facts.pages;
  if (!facts.isSignedIn) return Text("strPagesSignedOut");
  if (!facts.isWatched) return Text("strPagesNotWatched");
  if (pages.IsUnderWay()) return Text("strPagesCounting");
  if (pages.failedAt > pages.countedAt)
    return Format("strPagesCountFailed", {FromQt(MomentText(pages.failedAt, locale()))});
  if (pages.countedAt == 0) return Text("strPagesNotCounted");
  return Format("strPagesCountedAt", {FromQt(MomentText(pages.countedAt, locale()))});
}

void MWinPagesNumber::Update(const PagesFacts& facts) {
  m_total->setText(QString::number(facts.pages.current));
  if (const QString state = StateText(facts); state != m_state->text()) m_state->Tell(state);
  m_refresh->setEnabled(facts.isSignedIn && facts.isWatched);
  m_history->setEnabled(facts.hasHistoryFile);
  if (facts.history == nullptr) return;
  m_chart->SetHistory(*facts.history, facts.now);
  m_stack->setCurrentIndex(facts.history->empty() ? 1 : 2);
}

void MWinPagesNumber::Warn(const online::LostPages& lost) {
  m_warningText->setText(Format("msgPagesLost", {std::to_string(lost.before), std::to_string(lost.now)}));
  m_warning->show();
  QAccessibleEvent alert(m_warningText, QAccessible::Alert);
  QAccessible::updateAccessibility(&alert);
}

void MWinPagesNumber::ShowCurrentPoint() {
  m_point->setText(m_chart->CurrentText());
}

}  // namespace quill::ui
