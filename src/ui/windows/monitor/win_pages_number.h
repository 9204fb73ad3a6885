#pragma once
#include <QTimer>
#include <optional>

#include "ui/kit/tool_window.h"
#include "ui/windows/monitor/pages_facts.h"

class QLabel;
class QPushButton;
class QStackedWidget;

namespace quill::ui {

class PageChart;
class QuietNote;

/// How many pages the user's notebooks have, when they were counted, and how their number has changed. Asks
/// for news once a second while it is seen.
class MWinPagesNumber final : public ToolWindow {
  Q_OBJECT
 public:
  MWinPagesNumber(const shell::StringTable& strings, PagesHandlers handlers);

  void Update(const PagesFacts& facts);

  /// Says above everything that pages are missing, until the next count is asked for.
  void Warn(const online::LostPages& lost);

 protected:
  void showEvent(QShowEvent* event) override;
  void hideEvent(QHideEvent* event) override;

 private:
  QWidget* NewWarning();
  QWidget* NewTotal();
  QWidget* NewChart(const shell::StringTable& strings);
  QWidget* NewButtons();
  void CreateTimer();
  void TimerRun();
  QString StateText(const PagesFacts& facts) const;
  void ShowCurrentPoint();

  PagesHandlers m_handlers;
  QTimer m_timer;
  QWidget* m_warning;
  QLabel* m_warningText;
  QLabel* m_total;
  QuietNote* m_state;
  QStackedWidget* m_stack;
  PageChart* m_chart;
  QLabel* m_point;
  QPushButton* m_refresh;
  QPushButton* m_history;
};

}  // namespace quill::ui
