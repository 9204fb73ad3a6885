#include <QAction>
#include <QSet>

#include "ui/menu_builder.h"

namespace quill::ui {
namespace {

/// Where in a title its letter stands; −1 when all its letters are taken. Words' first letters come first.
qsizetype LetterPlace(const QString& title, const QSet<QChar>& taken) {
  // Characters that are typed through an input method cannot be pressed as a key.
  constexpr char16_t kFirstIdeographic = 0x2E80;
  const auto isFree = [&](qsizetype i) {
    return title[i].isLetterOrNumber() && title[i].unicode() < kFirstIdeographic &&
           !taken.contains(title[i].toLower());
  };
  for (qsizetype i = 0; i < title.size(); ++i) {
    if ((i == 0 || title[i - 1] == ' ') && isFree(i)) return i;
  }
  for (qsizetype i = 0; i < title.size(); ++i) {
    if (isFree(i)) return i;
  }
  return -1;
}

}  // namespace

void AssignMnemonics(QMenu& menu) {
  QSet<QChar> taken;
  for (QAction* action : menu.actions()) {
    if (action->menu() != nullptr) AssignMnemonics(*action->menu());
    QString title = action->text();
    const qsizetype place = LetterPlace(title, taken);
    if (place < 0) continue;
    taken.insert(title[place].toLower());
    action->setText(title.insert(place, '&'));
  }
}

}  // namespace quill::ui
