#include "ui/windows/text/exact_text_edit.h"

#include <QKeyEvent>
#include <QMimeData>
#include <QTextBlock>
#include <QTextCursor>
#include <algorithm>
#include <utility>

#include "ui/kit/qt_text.h"

namespace quill::ui {
namespace {

/// The property of a block that holds the line end behind it. Formats are part of what the document undoes.
constexpr int kLineEnd = QTextFormat::UserProperty + 1;

bool IsLineEnd(QChar c) {
  return c == u'\r' || c == u'\n' || c == QChar::ParagraphSeparator;
}

QTextBlockFormat FormatWithEnd(const QString& end) {
  QTextBlockFormat format;
  format.setProperty(kLineEnd, end);
  return format;
}

QString EndOf(const QTextBlock& block) {
  const QString end = block.blockFormat().stringProperty(kLineEnd);
  return end.isEmpty() ? QStringLiteral("\n") : end;
}

/// Writes a text line by line. What is typed behind its last line will end as the line before.
void Insert(QTextCursor cursor, const QString& text) {
  QString end = QStringLiteral("\n");
  cursor.setBlockFormat(FormatWithEnd(end));
  for (qsizetype begin = 0;;) {
    qsizetype at = begin;
    while (at < text.size() && !IsLineEnd(text[at])) ++at;
    cursor.insertText(text.mid(begin, at - begin));
    if (at == text.size()) break;
    begin = at + (QStringView(text).mid(at).startsWith(u"\r\n") ? 2 : 1);
    end = text.mid(at, begin - at);
    cursor.setBlockFormat(FormatWithEnd(end));
    cursor.insertBlock(FormatWithEnd(end));
  }
}

}  // namespace

ExactTextEdit::ExactTextEdit(std::string_view text) {
  setUndoRedoEnabled(false);
  Insert(textCursor(), ToQt(text));
  setUndoRedoEnabled(true);
}

std::string ExactTextEdit::Text() const {
  return FromQt(Part(0, document()->characterCount() - 1));
}

QString ExactTextEdit::Part(int begin, int end) const {
  QString text;
  QTextBlock block = document()->findBlock(begin);
  while (block.isValid() && block.position() <= end) {
    const int first = std::max(begin - block.position(), 0);
    const int length = std::min(end - block.position(), block.length() - 1) - first;
    text += QStringView(block.text()).mid(first, length);
    if (end >= block.position() + block.length()) text += EndOf(block);
    block = block.next();
  }
  return text;
}

bool ExactTextEdit::Replace(std::string_view text) {
  if (text == Text()) return false;
  QTextCursor cursor(document());
  cursor.beginEditBlock();
  cursor.select(QTextCursor::Document);
  cursor.removeSelectedText();
  Insert(cursor, ToQt(text));
  cursor.endEditBlock();
  moveCursor(QTextCursor::Start);
  return true;
}

QMimeData* ExactTextEdit::createMimeDataFromSelection() const {
  const QTextCursor cursor = textCursor();
  auto* mime = new QMimeData;
  mime->setText(Part(cursor.selectionStart(), cursor.selectionEnd()));
  return mime;
}

void ExactTextEdit::insertFromMimeData(const QMimeData* source) {
  QString text = source->text();
  text.replace(QLatin1String("\r\n"), QLatin1String("\n")).replace(u'\r', u'\n');
  QTextCursor cursor = textCursor();
  cursor.beginEditBlock();
  cursor.removeSelectedText();
  bool isFirst = true;
  for (const QString& line : text.split(u'\n')) {
    if (!std::exchange(isFirst, false)) cursor.insertBlock();  // with the format of the block it splits
    cursor.insertText(line);
  }
  cursor.endEditBlock();
  setTextCursor(cursor);
  ensureCursorVisible();
}

void ExactTextEdit::keyPressEvent(QKeyEvent* event) {
  if (!event->matches(QKeySequence::InsertLineSeparator)) return QPlainTextEdit::keyPressEvent(event);
  // Its separator inside a line is no line end for whoever gets the text.
  textCursor().insertBlock();
  ensureCursorVisible();
}

}  // namespace quill::ui
