#pragma once
#include "shell/content_requests.h"
#include "ui/kit/modal_window.h"

class QLabel;

namespace quill::ui {

class PlainTextView;
class SeparatorChoice;

/// Shows a table as text and keeps that text on the clipboard: from the beginning, and after every change.
/// All ways to close it are the same; the answer is what was chosen last.
class MWinTable2Text final : public AnswerWindow<shell::TableTextChoice> {
  Q_OBJECT
 public:
  MWinTable2Text(const shell::StringTable& strings, const shell::Table2TextRequest& request, Done done);

  void reject() override;

 private:
  Result<shell::TableTextChoice, Problem> Read() override;
  shell::TableTextChoice Choice() const;
  QWidget* NewTextPart();
  void Recompute();

  shell::TableCopy m_table;
  SeparatorChoice* m_choice;
  PlainTextView* m_text;
  QLabel* m_state;
};

}  // namespace quill::ui
