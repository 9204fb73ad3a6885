#pragma once
#include <QLabel>
#include <QString>

namespace quill::ui {

/// A label of plain text in as many lines as its window has room for. No text makes the window wider.
inline QLabel* NewWrappedLabel(const QString& text) {
  auto* label = new QLabel;
  label->setTextFormat(Qt::PlainText);
  label->setText(text);
  label->setWordWrap(true);
  QSizePolicy policy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  policy.setHeightForWidth(true);
  label->setSizePolicy(policy);
  label->setMinimumWidth(label->fontMetrics().averageCharWidth() * 30);
  label->setAlignment(Qt::AlignLeading | Qt::AlignTop);
  return label;
}

}  // namespace quill::ui
