#include "ui/kit/key_text.h"

#include <QSysInfo>
#include <utility>

#include "ui/kit/qt_text.h"

namespace quill::ui {
namespace {

using platform::HotKeyProblem;
using platform::KeyCombination;

struct Modifier {
  bool KeyCombination::*field;
  const char* words;    ///< as the keys are labelled on a PC
  const char* onMacOs;  ///< as Qt writes it for macOS, where its "Ctrl" is the Command key
};

constexpr Modifier kModifiers[] = {{&KeyCombination::control, "Ctrl+", "Meta+"},
                                   {&KeyCombination::option, "Alt+", "Alt+"},
                                   {&KeyCombination::shift, "Shift+", "Shift+"},
                                   {&KeyCombination::command, "Super+", "Ctrl+"}};

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

QString WordsOf(const KeyCombination& keys) {
  QString text;
  for (const Modifier& modifier : kModifiers) {
    if (keys.*modifier.field) text += QLatin1String(IsMacOs() ? modifier.onMacOs : modifier.words);
  }
  return text + ToQt(keys.key);
}

}  // namespace

QKeySequence KeySequence(const KeyCombination& keys) {
  // Qt calls the key with the system's logo "Meta".
  return QKeySequence(WordsOf(keys).replace(QLatin1String("Super+"), QLatin1String("Meta+")),
                      QKeySequence::PortableText);
}

QString HotKeyText(const KeyCombination& keys) {
  return IsMacOs() ? KeySequence(keys).toString(QKeySequence::NativeText) : WordsOf(keys);
}

QString HotKeyProblemText(const shell::StringTable& strings, const KeyCombination& keys,
                          HotKeyProblem problem, const std::string& detail) {
  for (const auto& [kind, key] : kProblems) {
    if (kind == problem) return ToQt(strings.Format(key, {FromQt(HotKeyText(keys)), detail})).trimmed();
  }
  return {};
}

}  // namespace quill::ui
