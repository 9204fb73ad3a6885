#pragma once
#include <QPlainTextEdit>
#include <QString>

namespace quill::ui {

/// A read-only text in the system's fixed font that can be copied exactly. A text view changes what it is
/// given (line ends become paragraphs, no-break spaces become spaces); what is copied here, whole or in part,
/// is cut out of the original.
class PlainTextView : public QPlainTextEdit {
  Q_OBJECT
 public:
  explicit PlainTextView(const QString& text);

  /// Shows another text and keeps the place that was scrolled to. Of a text that is longer than `shown` only
  /// the beginning can be seen, but when all of that is selected, the whole text is copied.
  void SetText(const QString& text, qsizetype shown);

  /// The whole text as it was given.
  const QString& original() const { return m_original; }

 protected:
  QMimeData* createMimeDataFromSelection() const override;

 private:
  /// Where in the original a position of the view is.
  qsizetype OriginalPosition(int viewPosition) const;

  QString m_original;
};

/// Puts a text on the clipboard as it is.
void CopyText(const QString& text);

}  // namespace quill::ui
