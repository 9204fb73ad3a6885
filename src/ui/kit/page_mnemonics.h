#pragma once
#include <QSet>
#include <QString>
#include <QWidget>

namespace quill::ui {

/// A text with "&" before the letter that is pressed with Alt to reach it: the first of a word if possible,
/// none of `taken`, to which it is added. A text without a letter of A to Z that is free gets one in
/// brackets at its end, as is the custom in Japanese and Chinese.
QString WithMnemonic(QString text, QSet<QChar>& taken);

/// Gives each labelled field, check box and button of a page, shown or not, its letter, all different from
/// each other and from those of `taken`.
void AssignMnemonics(QWidget& page, QSet<QChar> taken);

}  // namespace quill::ui
