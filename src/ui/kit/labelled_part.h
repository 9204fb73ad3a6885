#pragma once
#include <QLabel>
#include <QVBoxLayout>
#include <QWidget>

namespace quill::ui {

/// A control that takes the room it is given, below its label, which also names it for a screen reader. More
/// goes below it by `column()`. GUI thread.
class LabelledPart : public QWidget {
 public:
  LabelledPart(const QString& label, QWidget* control) : m_column(new QVBoxLayout(this)) {
    auto* words = new QLabel(label);
    words->setBuddy(control);
    control->setAccessibleName(label);
    m_column->setContentsMargins({});
    m_column->addWidget(words);
    m_column->addWidget(control, 1);
  }

  QVBoxLayout& column() { return *m_column; }

 private:
  QVBoxLayout* m_column;
};

}  // namespace quill::ui
