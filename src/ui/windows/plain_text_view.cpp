#include "ui/windows/plain_text_view.h"

#include <QApplication>
#include <QClipboard>
#include <QFontDatabase>
#include <QMimeData>
#include <QScrollBar>

namespace quill::ui {
namespace {

/// A copied page is often one line of megabytes, and a line is laid out as a whole: three million characters
/// take minutes. In the view lines are broken after this many.
constexpr int kLongestLine = 4000;

/// Goes through a text as the view shows it.
struct Walk {
  qsizetype position = 0;
  int column = 0;

  /// Steps over one character of the view and returns how much of the original it stands for: two for a
  /// carriage return with its line feed, nothing for a break that only the view has.
  qsizetype Next(const QString& text) {
    const QChar c = text[position];
    qsizetype length = 1;
    if (c == u'\r' || c == u'\n' || c == QChar::ParagraphSeparator) {
      column = 0;
      if (c == u'\r' && text.size() > position + 1 && text[position + 1] == u'\n') length = 2;
    } else if (column >= kLongestLine && !c.isLowSurrogate()) {
      column = 0;
      length = 0;
    } else {
      ++column;
    }
    position += length;
    return length;
  }
};

QString ViewText(const QString& text) {
  QString shown;
  shown.reserve(text.size() + text.size() / kLongestLine);
  for (Walk walk; walk.position < text.size();) {
    const qsizetype begin = walk.position;
    const qsizetype length = walk.Next(text);
    shown += length == 0 ? QStringView(u"\n") : QStringView(text).mid(begin, length);
  }
  return shown;
}

}  // namespace

PlainTextView::PlainTextView(const QString& text) : m_original(text) {
  setReadOnly(true);
  setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
  setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
  setTabChangesFocus(true);
  setUndoRedoEnabled(false);
  setPlainText(ViewText(text));
}

void PlainTextView::SetText(const QString& text, qsizetype shown) {
  const int place = verticalScrollBar()->value();
  m_original = text;
  if (shown < text.size() && text[shown].isLowSurrogate()) --shown;
  setPlainText(ViewText(text.left(shown)));
  verticalScrollBar()->setValue(place);
}

QMimeData* PlainTextView::createMimeDataFromSelection() const {
  const QTextCursor cursor = textCursor();
  const bool isAll =
      cursor.selectionStart() == 0 && cursor.selectionEnd() == document()->characterCount() - 1;
  const qsizetype begin = OriginalPosition(cursor.selectionStart());
  const qsizetype end = isAll ? m_original.size() : OriginalPosition(cursor.selectionEnd());
  auto* mime = new QMimeData;
  mime->setText(m_original.mid(begin, end - begin));
  return mime;
}

qsizetype PlainTextView::OriginalPosition(int viewPosition) const {
  Walk walk;
  for (int seen = 0; seen < viewPosition && walk.position < m_original.size(); ++seen) walk.Next(m_original);
  return walk.position;
}

void CopyText(const QString& text) {
  auto* mime = new QMimeData;
  mime->setText(text);
  QApplication::clipboard()->setMimeData(mime);
}

}  // namespace quill::ui
