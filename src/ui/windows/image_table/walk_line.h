#pragma once
#include <QTimer>
#include <QWidget>

#include "shell/string_table.h"

class QLabel;
class QProgressBar;

namespace quill::ui {

class PictureWalk;

/// Shows that pictures are being looked for, how many there are so far, and a button that ends it. Seen once
/// it has taken half a second.
class WalkLine final : public QWidget {
  Q_OBJECT
 public:
  WalkLine(const shell::StringTable& strings, PictureWalk& walk);

 private:
  void Tell();

  const shell::StringTable& m_strings;
  PictureWalk& m_walk;
  QTimer m_timer;
  QLabel* m_words;
  QProgressBar* m_bar;
};

}  // namespace quill::ui
