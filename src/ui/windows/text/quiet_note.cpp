#include "ui/windows/text/quiet_note.h"

#include <QAccessible>

namespace quill::ui {

QuietNote::QuietNote() {
  setTextFormat(Qt::PlainText);
  setMinimumHeight(fontMetrics().lineSpacing());
}

void QuietNote::Tell(const QString& text) {
  setText(text);
  if (text.isEmpty()) return;
  QAccessibleEvent alert(this, QAccessible::Alert);
  QAccessible::updateAccessibility(&alert);
}

}  // namespace quill::ui
