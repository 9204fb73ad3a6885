#pragma once
#include <QLineEdit>
#include <functional>
#include <optional>

#include "platform/key_combination.h"
#include "shell/string_table.h"

namespace quill::ui {

/// A field that shows a combination of keys and takes another one by having it pressed. It listens from when
/// it gets the keyboard until a combination, Backspace, Delete or Escape was pressed; Return, the space bar
/// or a click make it listen again. Tab goes on as always.
class KeyRecorder final : public QLineEdit {
  Q_OBJECT

 public:
  struct Handlers {
    std::function<void(const platform::KeyCombination& keys)> onKeys;
    std::function<void()> onRemoved;
    /// What was pressed cannot be a system-wide key, for this reason.
    std::function<void(const QString& reason)> onRefused;
    /// Listening began or ended.
    std::function<void()> onListening;
  };

  KeyRecorder(const shell::StringTable& strings, Handlers handlers);

  /// Shows this combination, or none.
  void SetKeys(const std::optional<platform::KeyCombination>& keys);

  /// Takes the keyboard and listens.
  void Record();

  bool IsListening() const { return m_listening; }

  /// A combination was pressed that the field did not see because it is registered already. False when
  /// nobody listens for it.
  bool Take(const platform::KeyCombination& keys);

 protected:
  bool event(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void keyReleaseEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;

 private:
  void Listen(bool on);
  void ShowHeld(const QKeyEvent& event);
  void TakeOrRefuse(const QKeyEvent& event);
  QString WhyNot(const QKeyEvent& event) const;

  const shell::StringTable& m_strings;
  Handlers m_handlers;
  QString m_shown;
  bool m_listening = false;
};

}  // namespace quill::ui
