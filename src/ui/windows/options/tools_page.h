#pragma once
#include "ui/windows/options/option_page.h"

namespace quill::ui {

class TextField;

/// The programs and sources behind source code, phonetics and equations.
class ToolsPage final : public OptionPage {
 public:
  explicit ToolsPage(OptionsDesk& desk);

 private:
  void AddHighlighter();
  void AddPhonetics();
  void AddMathJax();
  /// Asks for a program, beginning beside the one that is set.
  void ChooseProgram(TextField& field);
};

}  // namespace quill::ui
