#pragma once
#include <QWidget>

#include "shell/engine_requests.h"
#include "shell/string_table.h"
#include "ui/kit/latest_job.h"

class QLabel;

namespace quill::ui {

class PagePreview;

/// The beginning of a code as a page will show it, made on another thread. A line below tells when it is only
/// the beginning, or why there is nothing to be seen.
class CodePreview final : public QWidget {
  Q_OBJECT
 public:
  CodePreview(const shell::StringTable& strings, shell::HighlightCode highlight);

  /// Makes the preview of this request and ends one that is being made. What was shown stays until it is
  /// there.
  void Show(tools::HighlightRequest request);

  /// Ends the preview that is being made.
  void Stop() { m_job.Cancel(); }

  /// The room of the line below, so that it can stand beside a control.
  void SetNoteHeight(int height);

 private:
  using Html = Result<std::string, tools::HighlightFailure>;
  void Tell(const Html& html, bool isPart);

  const shell::StringTable& m_strings;
  shell::HighlightCode m_highlight;
  PagePreview* m_page;
  QLabel* m_note;
  LatestJob m_job;
};

}  // namespace quill::ui
