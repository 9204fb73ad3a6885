#pragma once
#include "ui/windows/options/option_page.h"

class QCheckBox;

namespace quill::ui {

/// Language, backups, the way OneNote is found and waited for.
class GeneralPage final : public OptionPage {
 public:
  explicit GeneralPage(OptionsDesk& desk);

 private:
  void ShowFacts() override;

  QCheckBox* m_exportLog;
};

}  // namespace quill::ui
