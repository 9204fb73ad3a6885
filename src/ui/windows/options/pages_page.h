#pragma once
#include <string>

#include "ui/windows/options/option_page.h"

class QLabel;

namespace quill::ui {

/// The watch over the number of pages, calendars, and the titles of journal pages.
class PagesPage final : public OptionPage {
 public:
  explicit PagesPage(OptionsDesk& desk);

 private:
  void AddWatch();
  void AddJournal();
  void ShowFacts() override;
  void ShowPreview();

  QLabel* m_preview = nullptr;
  std::string m_pattern;
};

}  // namespace quill::ui
