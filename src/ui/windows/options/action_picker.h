#pragma once
#include <functional>
#include <vector>

#include "shell/command_table.h"
#include "ui/kit/modal_window.h"
#include "ui/palette/palette_model.h"

class QLineEdit;
class QListView;

namespace quill::ui {

/// Lets the user choose one action of the whole table, by typing or from the list.
class ActionPicker final : public AnswerWindow<const shell::CommandRow*> {
 public:
  /// `keyOf` says which key an action has, empty for none.
  ActionPicker(const shell::StringTable& strings,
               const std::function<QString(const shell::CommandRow&)>& keyOf, Done done);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  Result<const shell::CommandRow*, Problem> Read() override;
  void Filter();
  void MoveTo(int row);
  bool Move(int key);

  PaletteModel m_model;
  QLineEdit* m_field;
  QListView* m_list;
};

}  // namespace quill::ui
