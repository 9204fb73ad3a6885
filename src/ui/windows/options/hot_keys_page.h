#pragma once
#include "ui/windows/options/option_page.h"

class QLineEdit;

namespace quill::ui {

class HotKeysField;

/// System-wide keys, and what to do where the system has none.
class HotKeysPage final : public OptionPage {
 public:
  explicit HotKeysPage(OptionsDesk& desk);

  HotKeysField& field() { return *m_field; }

 private:
  void ShowFacts() override;
  QWidget* NewCommandRow();
  void ShowCommand();

  QWidget* m_info;
  HotKeysField* m_field;
  QLineEdit* m_command = nullptr;
  QWidget* m_commandRow;
};

}  // namespace quill::ui
