#pragma once
#include <QKeyEvent>
#include <QLineEdit>

namespace quill::ui {

/// Whether a key event of a list, or of the field above it, means that the current row is to go. Not while
/// there is text in the field, which the key belongs to then.
inline bool IsRemoveKey(const QObject* watched, const QEvent& event) {
  if (event.type() != QEvent::KeyPress) return false;
  const auto* field = qobject_cast<const QLineEdit*>(watched);
  if (field != nullptr && !field->text().isEmpty()) return false;
  const auto& key = static_cast<const QKeyEvent&>(event);
  if (key.key() == Qt::Key_Delete) return (key.modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
  // The key of a small keyboard that says "delete" is this one, with Command.
  return key.key() == Qt::Key_Backspace && key.modifiers() == Qt::ControlModifier;
}

}  // namespace quill::ui
