#include "practice/page_clipboard.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>
#include <utility>

#include "platform/qt/html_bytes.h"
#include "practice/page_view.h"
#include "practice/pictures.h"

namespace quill::practice {
namespace {

ClipboardOutcome OutcomeOf(const QVariant& answer) {
  if (!answer.isValid()) return ClipboardOutcome::NoAnswer;
  return answer.toBool() ? ClipboardOutcome::Done : ClipboardOutcome::Nothing;
}

}  // namespace

PageClipboard::PageClipboard(PageView& view, std::filesystem::path pictureFolder)
    : m_view(view), m_pictureFolder(std::move(pictureFolder)) {
  std::error_code ignored;  // what is left over only takes room
  std::filesystem::remove_all(m_pictureFolder, ignored);
}

void PageClipboard::CopyThen(std::function<void()> then, Done done) {
  m_view.Call("copy", {}, [this, then = std::move(then), done = std::move(done)](const QVariant& answer) {
    if (!answer.isValid()) return done(ClipboardOutcome::NoAnswer);
    const QVariantMap copied = answer.toMap();
    if (copied.isEmpty()) return done(ClipboardOutcome::Nothing);
    auto* data = new QMimeData;  // the clipboard takes it
    data->setData("text/html", PicturesToFiles(copied["html"].toString(), m_pictureFolder).toUtf8());
    data->setText(copied["text"].toString());
    QGuiApplication::clipboard()->setMimeData(data);
    then();
  });
}

void PageClipboard::Copy(Done done) {
  const Done finish = std::move(done);
  CopyThen([finish] { finish(ClipboardOutcome::Done); }, finish);
}

void PageClipboard::Cut(Done done) {
  const Done finish = std::move(done);
  CopyThen(
      [this, finish] {
        m_view.Call("pressDelete", {}, [finish](const QVariant& answer) { finish(OutcomeOf(answer)); });
      },
      finish);
}

void PageClipboard::Paste(Done done) {
  const auto tell = [done = std::move(done)](const QVariant& answer) { done(OutcomeOf(answer)); };
  const QMimeData* data = QGuiApplication::clipboard()->mimeData();
  if (data && data->hasFormat("text/html")) {
    const QString html = platform::qt::HtmlText(data->data("text/html"));
    m_view.Call("pasteHtml", {html, PicturesFromFiles(html)}, tell);
  } else if (data && data->hasFormat("image/png")) {
    m_view.Call("pastePicture", {DataAddress(data->data("image/png"))}, tell);
  } else if (data && data->hasText()) {
    m_view.Call("pasteText", {data->text()}, tell);
  } else {
    tell(false);
  }
}

}  // namespace quill::practice
