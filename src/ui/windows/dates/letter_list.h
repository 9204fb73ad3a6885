#pragma once
#include <QTreeWidget>
#include <chrono>
#include <functional>
#include <span>

#include "shell/string_table.h"
#include "tools/date_pattern.h"

namespace quill::ui {

/// The letters of a date pattern, what they mean, and what each writes at a moment. Return and a double click
/// choose a row.
class LetterList final : public QTreeWidget {
  Q_OBJECT
 public:
  LetterList(const shell::StringTable& strings, std::span<const tools::PatternLetter> letters,
             std::chrono::system_clock::time_point moment);

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 signals:
  void Chosen(const QString& letters);

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  int HeightOf(int rows) const;
  int WidthOfColumns() const;
};

}  // namespace quill::ui
