#include "ui/kit/page_mnemonics.h"

#include <QAbstractButton>
#include <QLabel>

namespace quill::ui {
namespace {

bool IsPlainLetter(QChar letter) {
  const QChar lower = letter.toLower();
  return lower >= u'a' && lower <= u'z';
}

qsizetype LetterPlace(const QString& text, const QSet<QChar>& taken) {
  const auto isFree = [&](qsizetype i) {
    return IsPlainLetter(text[i]) && !taken.contains(text[i].toLower());
  };
  for (qsizetype i = 0; i < text.size(); ++i) {
    if ((i == 0 || text[i - 1] == u' ') && isFree(i)) return i;
  }
  for (qsizetype i = 0; i < text.size(); ++i) {
    if (isFree(i)) return i;
  }
  return -1;
}

QString Escaped(QString text) {
  return text.replace(QLatin1String("&"), QLatin1String("&&"));
}

QString WithLetterInBrackets(const QString& text, QSet<QChar>& taken) {
  for (char letter = 'A'; letter <= 'Z'; ++letter) {
    const QChar lower = QChar(QLatin1Char(letter)).toLower();
    if (taken.contains(lower)) continue;
    taken.insert(lower);
    // Before a colon or an ellipsis, which stay the last.
    qsizetype end = text.size();
    while (end > 0 && QStringLiteral(":：…").contains(text[end - 1])) --end;
    return Escaped(text.left(end)) + QStringLiteral("(&%1)").arg(QLatin1Char(letter)) + text.mid(end);
  }
  return Escaped(text);
}

}  // namespace

QString WithMnemonic(QString text, QSet<QChar>& taken) {
  const qsizetype place = LetterPlace(text, taken);
  if (place < 0) return WithLetterInBrackets(text, taken);
  taken.insert(text[place].toLower());
  return Escaped(text.left(place)) + u'&' + Escaped(text.mid(place));
}

void AssignMnemonics(QWidget& page, QSet<QChar> taken) {
  for (QWidget* widget : page.findChildren<QWidget*>()) {
    if (auto* label = qobject_cast<QLabel*>(widget)) {
      if (label->buddy() != nullptr) label->setText(WithMnemonic(label->text(), taken));
    } else if (auto* button = qobject_cast<QAbstractButton*>(widget)) {
      if (!button->text().isEmpty()) button->setText(WithMnemonic(button->text(), taken));
    }
  }
}

}  // namespace quill::ui
