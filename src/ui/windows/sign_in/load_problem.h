#pragma once
#include <QWidget>

#include "shell/string_table.h"

class QLabel;
class QPushButton;

namespace quill::ui {

/// What stands in the place of a page that could not be shown: why, and a button to try again. GUI thread.
class LoadProblem final : public QWidget {
  Q_OBJECT
 public:
  explicit LoadProblem(const shell::StringTable& strings);

  /// Tells a problem in one sentence, with what to do about it, and gives the button the keyboard.
  void Tell(const QString& problem, const QString& hint);

 signals:
  void TryAgain();

 private:
  QLabel* m_problem;
  QLabel* m_hint;
  QPushButton* m_again;
};

}  // namespace quill::ui
