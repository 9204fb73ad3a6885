#pragma once
#include <cstdint>

#include "shell/content_requests.h"
#include "ui/kit/modal_window.h"

class QListWidget;

namespace quill::ui {

class PagePreview;

/// Asks for a colour scheme for a table: all of them as small tables, in a grid with a row for each kind, and
/// beside them the user's own table as the chosen one would make it. Without a chosen style OK only says so.
class MWinTableStyle final : public AnswerWindow<std::int64_t> {
  Q_OBJECT
 public:
  MWinTableStyle(const shell::StringTable& strings, const shell::TableStyleRequest& request, Done done);

 protected:
  void showEvent(QShowEvent* event) override;

 private:
  Result<std::int64_t, Problem> Read() override;
  QWidget* NewStylesPart(const shell::StringTable& strings);
  QWidget* NewPreviewPart();
  /// −1 when no style is selected.
  std::int64_t Selected() const;
  void ShowPreview();

  shell::TableCopy m_table;
  QListWidget* m_styles;
  PagePreview* m_preview;
};

}  // namespace quill::ui
