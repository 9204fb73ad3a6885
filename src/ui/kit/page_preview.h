#pragma once
#include <QByteArray>
#include <QCache>
#include <QImage>
#include <QTextBrowser>
#include <string_view>

namespace quill::ui {

/// What a piece of HTML looks like on a page: black on white, whatever the desktop's colours are, and with
/// tables in thin lines.
///
/// Read-only and still: no link can be followed, and no file or address is read, whatever the text names. The
/// first forty pictures inside the text (data: addresses) are shown, in the size of an excerpt at most, and
/// are kept for the next page; an empty frame stands for any other. Made for excerpts: laying out a page
/// takes time in proportion to its size. GUI thread.
class PagePreview final : public QTextBrowser {
  Q_OBJECT
 public:
  PagePreview();

  /// Shows a document or a fragment (UTF-8) and keeps the place that was scrolled to.
  void ShowHtml(std::string_view html);

  QVariant loadResource(int type, const QUrl& name) override;

 private:
  QImage Picture(const QUrl& address);

  QCache<QByteArray, QImage> m_pictures;  ///< by their addresses; the costs are kilobytes
  int m_picturesOnPage = 0;
};

}  // namespace quill::ui
