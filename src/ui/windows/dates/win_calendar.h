#pragma once
#include "shell/content_requests.h"
#include "ui/kit/modal_window.h"

class QCalendarWidget;
class QComboBox;
class QHBoxLayout;
class QMouseEvent;
class QSpinBox;
class QTableView;

namespace quill::ui {

/// Asks for the month or the year of a calendar: a day is picked, and the button says which of the two is
/// wanted. In the calendar the arrows move by days, Page Up and Page Down by months, with
/// Control by years; Return and a double click mean the month.
class MWinCalendar final : public AnswerWindow<shell::CalendarChoice> {
  Q_OBJECT
 public:
  MWinCalendar(const shell::StringTable& strings, const shell::CalendarRequest& request, Done done);

 protected:
  void changeEvent(QEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  Result<shell::CalendarChoice, Problem> Read() override;
  shell::CalendarChoice Choice(shell::CalendarChoice::Span span) const;
  QCalendarWidget* NewPicker(const shell::CalendarRequest& request);
  QHBoxLayout* NewHead(const shell::CalendarRequest& request);
  /// The fields first: month and year get theirs whatever the buttons are called.
  void GiveLetters();
  void SelectMonth();
  void ShowSelection();
  bool IsOnSelection(const QMouseEvent& press) const;
  void AddYearKey(const char* keys, int years);
  void ColourPicker();

  QCalendarWidget* m_picker = nullptr;
  QTableView* m_days = nullptr;  ///< the picker's
  QComboBox* m_month;
  QSpinBox* m_year;
};

}  // namespace quill::ui
