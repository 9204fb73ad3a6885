#pragma once
#include "ui/windows/options/option_page.h"

class QLabel;
class QPushButton;

namespace quill::ui {

/// Who is signed in, and the way in and out.
class AccountPage final : public OptionPage {
 public:
  explicit AccountPage(OptionsDesk& desk);

 private:
  void ShowFacts() override;

  QLabel* m_who;
  QPushButton* m_signIn;
  QPushButton* m_signOut;
};

}  // namespace quill::ui
