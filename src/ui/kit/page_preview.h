#pragma once
#include <QTextBrowser>
#include <string_view>

namespace quill::ui {

/// What a piece of HTML looks like on a page: black on white, whatever the desktop's colours are, and with
/// tables in thin lines.
///
/// Read-only and still: no link can be followed, and no file or address is read, whatever the text names. A
/// picture inside the text (a data: address) is shown, an empty frame stands for any other. Made for
/// excerpts: laying out a page takes time in proportion to its size. GUI thread.
class PagePreview final : public QTextBrowser {
  Q_OBJECT
 public:
  PagePreview();

  /// Shows a document or a fragment (UTF-8) and keeps the place that was scrolled to.
  void ShowHtml(std::string_view html);

  QVariant loadResource(int type, const QUrl& name) override;
};

}  // namespace quill::ui
