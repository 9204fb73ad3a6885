#pragma once
#include <QWidget>
#include <vector>

#include "shell/string_table.h"
#include "tools/picture_list.h"

class QPlainTextEdit;
class QPushButton;

namespace quill::ui {

class ElidedLabel;

/// Names the paths that were left out of a list: how many and the last of them in one line, all of them in a
/// field that a button opens. Hidden while there are none.
class SkippedLine final : public QWidget {
  Q_OBJECT
 public:
  explicit SkippedLine(const shell::StringTable& strings);

  void Add(const std::vector<tools::SkippedPath>& skipped);
  void Clear();

 private:
  const shell::StringTable& m_strings;
  std::size_t m_count = 0;
  ElidedLabel* m_words;
  QPushButton* m_more;
  QPlainTextEdit* m_all;
};

}  // namespace quill::ui
