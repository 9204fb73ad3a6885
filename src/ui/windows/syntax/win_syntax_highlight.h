#pragma once
#include <QPointer>
#include <QTimer>
#include <optional>
#include <string>

#include "shell/engine_requests.h"
#include "ui/kit/latest_job.h"
#include "ui/kit/modal_window.h"

namespace quill::ui {

class BusyLine;
class CodePreview;
class CodeStyleFields;
class ExactTextEdit;

/// Asks for a piece of code and how it shall look, shows its beginning as a page will, and colours it when
/// Insert is pressed. That may take seconds, in which Cancel and Escape end the work instead of the window.
class MWinSyntaxHighlight final : public AnswerWindow<shell::SyntaxChoice> {
  Q_OBJECT
 public:
  MWinSyntaxHighlight(const shell::StringTable& strings, const shell::SyntaxHighlightRequest& request,
                      Done done);

  void reject() override;

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  using Html = Result<std::string, tools::HighlightFailure>;
  Result<shell::SyntaxChoice, Problem> Read() override;
  QWidget* NewPage();
  QWidget* NewCodePart();
  void ConnectFields();
  void ShowCodeColors();
  void FieldsChanged();
  void Settle();
  void Paste();
  void Insert();
  void Finish(const tools::HighlightRequest& request, Html html);
  void BeginBusy();
  void EndBusy();
  void TellFailure(tools::HighlightProblem problem);

  shell::HighlightCode m_highlight;
  CodeStyleFields* m_fields;
  ExactTextEdit* m_code;
  CodePreview* m_preview;
  BusyLine* m_busy;
  QWidget* m_page;
  QPointer<QWidget> m_focusBefore;
  QTimer m_calm;  // runs out when nothing has changed for a moment
  LatestJob m_run;
  std::optional<tools::HighlightRequest> m_failed;  // the run that failed last
  shell::SyntaxChoice m_choice;                     // of the run that succeeded
};

}  // namespace quill::ui
