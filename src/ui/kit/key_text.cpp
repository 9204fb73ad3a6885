#include "ui/kit/key_text.h"

#include <QCoreApplication>
#include <QSysInfo>
#include <utility>

#include "ui/kit/qt_text.h"

namespace quill::ui {
namespace {

using platform::HotKeyProblem;
using platform::KeyCombination;

struct Modifier {
  bool KeyCombination::*field;
  const char* label;     ///< as the key is labelled on an English PC
  const char* portable;  ///< what Qt calls the key with the system's logo is "Meta"
  const char* onMacOs;   ///< as Qt writes it for macOS, where its "Ctrl" is the Command key
};

constexpr Modifier kModifiers[] = {{&KeyCombination::control, "Ctrl", "Ctrl", "Meta"},
                                   {&KeyCombination::option, "Alt", "Alt", "Alt"},
                                   {&KeyCombination::shift, "Shift", "Shift", "Shift"},
                                   {&KeyCombination::command, "Super", "Meta", "Ctrl"}};

constexpr std::pair<HotKeyProblem, const char*> kProblems[] = {
    {HotKeyProblem::Taken, "msgHotKeyTaken"},
    {HotKeyProblem::NoSuchKey, "msgHotKeyNoSuchKey"},
    {HotKeyProblem::NotSupported, "msgHotKeyNotSupported"},
    {HotKeyProblem::Refused, "msgHotKeyRefused"},
    {HotKeyProblem::SystemError, "msgHotKeySystemError"}};

bool IsMacOs() {
  static const bool macOs = QSysInfo::kernelType() == QLatin1String("darwin");
  return macOs;
}

}  // namespace

QString KeyLabel(const char* name) {
  // Where Qt's menus take the names from.
  return QCoreApplication::translate("QShortcut", name);
}

QKeySequence KeySequence(const KeyCombination& keys) {
  QString text;
  for (const Modifier& modifier : kModifiers) {
    if (keys.*modifier.field) text += QLatin1String(IsMacOs() ? modifier.onMacOs : modifier.portable) + u'+';
  }
  return QKeySequence(text + ToQt(keys.key), QKeySequence::PortableText);
}

QString HotKeyText(const KeyCombination& keys) {
  if (IsMacOs()) return KeySequence(keys).toString(QKeySequence::NativeText);
  QString text;
  for (const Modifier& modifier : kModifiers) {
    if (keys.*modifier.field) text += KeyLabel(modifier.label) + u'+';
  }
  return text + KeyLabel(keys.key.c_str());
}

QString HotKeyProblemText(const shell::StringTable& strings, const KeyCombination& keys,
                          HotKeyProblem problem, const std::string& detail) {
  for (const auto& [kind, key] : kProblems) {
    if (kind == problem) return ToQt(strings.Format(key, {FromQt(HotKeyText(keys)), detail})).trimmed();
  }
  return {};
}

}  // namespace quill::ui
