#pragma once
#include "shell/open_notebook.h"
#include "ui/kit/modal_window.h"

class QLineEdit;

namespace quill::ui {

/// Asks for a client link; another text is refused, and the window stays.
class MWinOpenNotebookByLink final : public AnswerWindow<std::string> {
  Q_OBJECT
 public:
  MWinOpenNotebookByLink(const shell::StringTable& strings, const shell::OpenNotebookRequest& request,
                         Done done);

 private:
  Result<std::string, Problem> Read() override;

  QLineEdit* m_notebookLinks;
};

}  // namespace quill::ui
