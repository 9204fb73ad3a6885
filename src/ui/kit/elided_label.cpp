#include "ui/kit/elided_label.h"

#include <QResizeEvent>

namespace quill::ui {

void ElidedLabel::SetText(const QString& text) {
  if (text == m_whole) return;
  m_whole = text;
  setTextFormat(Qt::PlainText);
  setAccessibleName(text);
  Elide();
}

QSize ElidedLabel::minimumSizeHint() const {
  return {fontMetrics().averageCharWidth() * 12, fontMetrics().lineSpacing()};
}

QSize ElidedLabel::sizeHint() const {
  return minimumSizeHint();
}

void ElidedLabel::resizeEvent(QResizeEvent* event) {
  QLabel::resizeEvent(event);
  Elide();
}

void ElidedLabel::Elide() {
  const QString line = m_whole.simplified();
  const QString shown = fontMetrics().elidedText(line, Qt::ElideMiddle, contentsRect().width());
  setText(shown);
  setToolTip(shown == line ? QString() : m_whole.toHtmlEscaped());
}

}  // namespace quill::ui
