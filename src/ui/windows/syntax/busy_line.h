#pragma once
#include <QTimer>
#include <QWidget>

class QProgressBar;

namespace quill::ui {

/// A line that says what a window is working on, with a bar that moves. It appears when the work takes longer
/// than half a second; its room is kept.
class BusyLine final : public QWidget {
  Q_OBJECT
 public:
  explicit BusyLine(const QString& text);

  void Begin() { m_delay.start(); }
  void End();

 private:
  void Appear();

  QProgressBar* m_bar;
  QTimer m_delay;
};

}  // namespace quill::ui
