#pragma once
#include <string>

#include "shell/content_requests.h"
#include "ui/kit/modal_window.h"

class QLabel;
class QLineEdit;

namespace quill::ui {

class PagePreview;
class SeparatorChoice;

/// Asks how a text is cut into the cells of a table, and shows the beginning of that table. By paragraphs the
/// user gives the number of columns and the rows follow; by a separator the text gives both.
class MWinText2Table final : public AnswerWindow<shell::TextTableChoice> {
  Q_OBJECT
 public:
  MWinText2Table(const shell::StringTable& strings, const shell::Text2TableRequest& request, Done done);

 private:
  Result<shell::TextTableChoice, Problem> Read() override;
  shell::TextTableChoice Choice() const;
  QWidget* NewChoicePart();
  QWidget* NewPreviewPart();
  void Recompute(tools::EditedField edited);
  void ShowTable();
  void Warn(const QString& warning);

  std::string m_text;
  SeparatorChoice* m_choice;
  QLineEdit* m_columns;
  QLineEdit* m_rows;
  QLabel* m_hint;
  PagePreview* m_preview;
  QLabel* m_size;
  QString m_warning;
};

}  // namespace quill::ui
