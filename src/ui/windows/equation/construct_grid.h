#pragma once
#include <QListWidget>

#include "tools/equation_palette.h"

namespace quill::ui {

/// The constructs of one group as buttons that show what they write. One stop for Tab: arrow keys go through
/// the buttons, Return and Space press one. GUI thread.
class ConstructGrid final : public QListWidget {
  Q_OBJECT
 public:
  ConstructGrid();

  void ShowGroup(const tools::EquationGroup& group);

 signals:
  void Chosen(const tools::EquationConstruct& construct);

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void FitCells();

  tools::EquationGroup m_group;
};

}  // namespace quill::ui
