#include "ui/windows/dates/win_calendar.h"

#include <QCalendarWidget>
#include <QComboBox>
#include <QEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QPushButton>
#include <QShortcut>
#include <QSignalBlocker>
#include <QSpinBox>
#include <QTableView>
#include <QTextCharFormat>
#include <QVBoxLayout>
#include <algorithm>

#include "ui/kit/dark.h"
#include "ui/kit/page_mnemonics.h"
#include "ui/kit/wrapped_label.h"

namespace quill::ui {
namespace {

using Span = shell::CalendarChoice::Span;

const QDate kFirstDay(1, 1, 1);
const QDate kLastDay(9999, 12, 31);

QDate DateOf(std::chrono::year_month_day day) {
  return {static_cast<int>(day.year()), static_cast<int>(static_cast<unsigned>(day.month())),
          static_cast<int>(static_cast<unsigned>(day.day()))};
}

std::chrono::year_month_day DayOf(QDate day) {
  return {std::chrono::year(day.year()), std::chrono::month(static_cast<unsigned>(day.month())),
          std::chrono::day(static_cast<unsigned>(day.day()))};
}

/// With some air between its seven rows where the screen is high enough.
class Picker final : public QCalendarWidget {
 public:
  QSize sizeHint() const override {
    return minimumSizeHint().expandedTo({0, fontMetrics().lineSpacing() * 12});
  }
};

}  // namespace

MWinCalendar::MWinCalendar(const shell::StringTable& strings, const shell::CalendarRequest& request,
                           Done done)
    : AnswerWindow(strings, "titleCalendar", std::move(done)) {
  content().addWidget(NewWrappedLabel(Text("strCalendarHelp")));
  content().addLayout(NewHead(request));
  content().addWidget(m_picker = NewPicker(request), 1);
  ShowSelection();
  SetOkText("strCalendarMonth");
  QPushButton& year = AddButton("strCalendarYear");
  year.setAutoDefault(false);
  connect(&year, &QPushButton::clicked, this, [this] { FinishWith(Choice(Span::Year)); });
  AddYearKey("Ctrl+PgUp", -1);
  AddYearKey("Ctrl+PgDown", 1);

  GiveLetters();
  ColourPicker();
  m_picker->setFocus();
}

QCalendarWidget* MWinCalendar::NewPicker(const shell::CalendarRequest& request) {
  auto* picker = new Picker;
  picker->setDateRange(kFirstDay, kLastDay);
  picker->setSelectedDate(DateOf(request.today));
  picker->setFirstDayOfWeek(request.startsWithMonday ? Qt::Monday : Qt::Sunday);
  picker->setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
  // The fields above do the same, and can be reached with the keyboard.
  picker->setNavigationBarVisible(false);
  picker->setDateEditEnabled(false);
  // The view inside has the keyboard, so it is what a screen reader names.
  m_days = picker->findChild<QTableView*>();
  m_days->setAccessibleName(Text("strCalendarPicker"));
  // The picker's own signal also comes with a single click where the desktop opens files so.
  m_days->installEventFilter(this);
  m_days->viewport()->installEventFilter(this);
  connect(picker, &QCalendarWidget::selectionChanged, this, [this] { ShowSelection(); });
  return picker;
}

QHBoxLayout* MWinCalendar::NewHead(const shell::CalendarRequest& request) {
  m_month = new QComboBox;
  for (int month = 1; month <= 12; ++month) m_month->addItem(locale().standaloneMonthName(month));
  m_year = new QSpinBox;
  m_year->setRange(kFirstDay.year(), kLastDay.year());
  auto* today = new QPushButton(Text("strCalendarToday"));
  today->setAutoDefault(false);
  connect(m_month, &QComboBox::currentIndexChanged, this, [this] { SelectMonth(); });
  connect(m_year, &QSpinBox::valueChanged, this, [this] { SelectMonth(); });
  connect(today, &QPushButton::clicked, this,
          [this, day = DateOf(request.today)] { m_picker->setSelectedDate(day); });

  auto* head = new QHBoxLayout;
  const std::pair<QWidget*, const char*> fields[] = {{m_month, "strCalendarMonthField"},
                                                     {m_year, "strCalendarYearField"}};
  for (const auto& [field, key] : fields) {
    auto* label = new QLabel(Text(key));
    label->setBuddy(field);
    field->setAccessibleName(label->text());
    head->addWidget(label);
    head->addWidget(field, 1);
  }
  head->addWidget(today);
  return head;
}

void MWinCalendar::GiveLetters() {
  QSet<QChar> taken;
  for (QLabel* label : findChildren<QLabel*>()) {
    if (label->buddy() != nullptr) label->setText(WithMnemonic(label->text(), taken));
  }
  for (auto* button : findChildren<QPushButton*>()) button->setText(WithMnemonic(button->text(), taken));
}

void MWinCalendar::SelectMonth() {
  const QDate first(m_year->value(), m_month->currentIndex() + 1, 1);
  const int day = std::min(m_picker->selectedDate().day(), first.daysInMonth());
  m_picker->setSelectedDate(first.addDays(day - 1));
}

void MWinCalendar::ShowSelection() {
  const QDate day = m_picker->selectedDate();
  const QSignalBlocker month(m_month);
  const QSignalBlocker year(m_year);
  m_month->setCurrentIndex(day.month() - 1);
  m_year->setValue(day.year());
  m_days->setAccessibleDescription(locale().toString(day));
}

bool MWinCalendar::IsOnSelection(const QMouseEvent& press) const {
  const QModelIndex cell = m_days->indexAt(press.pos());
  return press.button() == Qt::LeftButton && cell.data().toInt() == m_picker->selectedDate().day();
}

bool MWinCalendar::eventFilter(QObject* watched, QEvent* event) {
  if (watched == m_days && event->type() == QEvent::KeyPress) {
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Select) {
      FinishWith(Choice(Span::Month));
      return true;
    }
  }
  if (watched == m_days->viewport() && event->type() == QEvent::MouseButtonDblClick &&
      IsOnSelection(*static_cast<QMouseEvent*>(event))) {
    FinishWith(Choice(Span::Month));
    return true;
  }
  return AnswerWindow::eventFilter(watched, event);
}

void MWinCalendar::AddYearKey(const char* keys, int years) {
  auto* key = new QShortcut(QKeySequence(QLatin1String(keys)), this);
  connect(key, &QShortcut::activated, this,
          [this, years] { m_picker->setSelectedDate(m_picker->selectedDate().addYears(years)); });
}

void MWinCalendar::ColourPicker() {
  QTextCharFormat weekend;
  weekend.setForeground(IsDark(palette()) ? QColor(255, 138, 128) : QColor(176, 0, 32));
  m_picker->setWeekdayTextFormat(Qt::Saturday, weekend);
  m_picker->setWeekdayTextFormat(Qt::Sunday, weekend);
}

void MWinCalendar::changeEvent(QEvent* event) {
  AnswerWindow::changeEvent(event);
  if (event->type() == QEvent::PaletteChange && m_picker != nullptr) ColourPicker();
}

shell::CalendarChoice MWinCalendar::Choice(Span span) const {
  return {DayOf(m_picker->selectedDate()), span};
}

Result<shell::CalendarChoice, Problem> MWinCalendar::Read() {
  return Choice(Span::Month);
}

}  // namespace quill::ui
