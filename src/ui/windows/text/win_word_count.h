#pragma once
#include <vector>

#include "shell/content_requests.h"
#include "ui/kit/modal_window.h"

class QTreeWidget;

namespace quill::ui {

class QuietNote;

/// Shows figures, which can be copied: all of them with the button, the selected rows, or all when none is,
/// with Control+C. Closing it in any way is the same.
class MWinWordCount final : public AnswerWindow<std::monostate> {
  Q_OBJECT
 public:
  MWinWordCount(const shell::StringTable& strings, const shell::CountRequest& request, Done done);

 private:
  Result<std::monostate, Problem> Read() override;
  QTreeWidget* NewList();
  std::vector<tools::CountRow> SelectedRows() const;
  void Copy(const std::vector<tools::CountRow>& rows);

  std::vector<tools::CountRow> m_rows;
  QTreeWidget* m_list = nullptr;
  QuietNote* m_note;
};

}  // namespace quill::ui
