#include "ui/windows/options/key_recorder.h"

#include <QKeyEvent>
#include <QSysInfo>

#include "ui/kit/key_text.h"
#include "ui/kit/qt_text.h"
#include "ui/windows/options/key_of_event.h"

namespace quill::ui {
namespace {

using platform::KeyCombination;

constexpr int kVisibleCharacters = 22;  // "Ctrl+Alt+Shift+Space"

/// The modifiers that a system-wide key needs one of, as they are labelled.
std::vector<std::string> ModifierNames() {
  if (QSysInfo::kernelType() == QLatin1String("darwin")) return {"Control", "Option", "Command"};
  return {FromQt(KeyLabel("Ctrl")), FromQt(KeyLabel("Alt")), FromQt(KeyLabel("Super"))};
}

bool HasModifier(const KeyCombination& keys) {
  return keys.control || keys.option || keys.shift || keys.command;
}

bool IsRemoval(const QKeyEvent& event) {
  return (event.key() == Qt::Key_Backspace || event.key() == Qt::Key_Delete) &&
         !HasModifier(CombinationOf(event));
}

bool StartsListening(const QKeyEvent& event) {
  return event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter || event.key() == Qt::Key_Space;
}

bool IsTab(const QKeyEvent& event) {
  return event.key() == Qt::Key_Tab || event.key() == Qt::Key_Backtab;
}

}  // namespace

KeyRecorder::KeyRecorder(const shell::StringTable& strings, Handlers handlers)
    : m_strings(strings), m_handlers(std::move(handlers)) {
  setReadOnly(true);
  setContextMenuPolicy(Qt::NoContextMenu);
  setMinimumWidth(fontMetrics().averageCharWidth() * kVisibleCharacters);
  setPlaceholderText(ToQt(strings.Text("strOptionsNoKey")));
}

void KeyRecorder::SetKeys(const std::optional<KeyCombination>& keys) {
  m_shown = keys ? HotKeyText(*keys) : QString();
  setText(m_shown);
  setCursorPosition(0);
}

void KeyRecorder::Record() {
  setFocus(Qt::OtherFocusReason);
  Listen(true);  // the window itself may have to get the keyboard first
}

bool KeyRecorder::Take(const KeyCombination& keys) {
  if (!m_listening || !hasFocus() || !isActiveWindow()) return false;
  Listen(false);
  m_handlers.onKeys(keys);
  return true;
}

bool KeyRecorder::event(QEvent* event) {
  // What can be recorded is no shortcut of the window meanwhile.
  if (event->type() == QEvent::ShortcutOverride && m_listening) {
    const auto& key = *static_cast<QKeyEvent*>(event);
    if (!KeyNameOf(key).empty() || IsModifierKey(key)) {
      event->accept();
      return true;
    }
  }
  return QLineEdit::event(event);
}

void KeyRecorder::keyPressEvent(QKeyEvent* event) {
  if (IsTab(*event)) return event->ignore();  // with Control: another page
  event->accept();
  if (IsRemoval(*event)) {
    Listen(false);
    return m_handlers.onRemoved();
  }
  if (m_listening) {
    if (event->isAutoRepeat()) return;
    if (event->key() == Qt::Key_Escape) return Listen(false);
    if (IsModifierKey(*event)) return ShowHeld(*event);
    return TakeOrRefuse(*event);
  }
  if (StartsListening(*event)) return Listen(true);
  QLineEdit::keyPressEvent(event);
}

void KeyRecorder::keyReleaseEvent(QKeyEvent* event) {
  if (!m_listening || !IsModifierKey(*event)) return QLineEdit::keyReleaseEvent(event);
  if (text() == m_shown || event->isAutoRepeat()) return;
  if (HasModifier(CombinationOf(*event))) return ShowHeld(*event);
  setText(m_shown);
  m_handlers.onRefused(ToQt(m_strings.Format("errOptionsKeyModifiersOnly", ModifierNames())));
}

void KeyRecorder::focusInEvent(QFocusEvent* event) {
  QLineEdit::focusInEvent(event);
  // Who comes back from another window finds the field as it was.
  if (event->reason() != Qt::ActiveWindowFocusReason && event->reason() != Qt::PopupFocusReason) Listen(true);
}

void KeyRecorder::focusOutEvent(QFocusEvent* event) {
  QLineEdit::focusOutEvent(event);
  if (event->reason() != Qt::ActiveWindowFocusReason && event->reason() != Qt::PopupFocusReason)
    Listen(false);
}

void KeyRecorder::mousePressEvent(QMouseEvent* event) {
  QLineEdit::mousePressEvent(event);
  if (hasFocus()) Listen(true);
}

void KeyRecorder::Listen(bool on) {
  if (text() != m_shown) setText(m_shown);
  on ? selectAll() : deselect();
  if (m_listening == on) return;
  m_listening = on;
  m_handlers.onListening();
}

/// The modifiers that are down, with "+" behind them, until a key follows.
void KeyRecorder::ShowHeld(const QKeyEvent& event) {
  KeyCombination keys = CombinationOf(event);
  const bool isSuper = event.key() == Qt::Key_Super_L || event.key() == Qt::Key_Super_R;
  if (isSuper && event.type() == QEvent::KeyPress) keys.command = true;
  keys.key = "F1";  // a key that every system writes at the end, and with two characters
  setText(HotKeyText(keys).chopped(2) + QStringLiteral("…"));
}

void KeyRecorder::TakeOrRefuse(const QKeyEvent& event) {
  setText(m_shown);
  const KeyCombination keys = CombinationOf(event);
  if (platform::ParseKeyCombination(platform::KeyCombinationText(keys))) {
    Listen(false);
    m_handlers.onKeys(keys);
  } else {
    m_handlers.onRefused(WhyNot(event));
  }
}

QString KeyRecorder::WhyNot(const QKeyEvent& event) const {
  std::vector<std::string> words{FromQt(SpokenKey(event))};
  if (KeyNameOf(event).empty()) return ToQt(m_strings.Format("errOptionsKeyUnusable", words));
  for (std::string& name : ModifierNames()) words.push_back(std::move(name));
  return ToQt(m_strings.Format("errOptionsKeyNeedsModifier", words));
}

}  // namespace quill::ui
