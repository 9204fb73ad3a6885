#include "ui/kit/win_input.h"

#include <QLineEdit>
#include <QVBoxLayout>

#include "ui/kit/qt_text.h"
#include "ui/kit/wrapped_label.h"

namespace quill::ui {

MWinInput::MWinInput(const shell::StringTable& strings, const platform::TextQuestion& question, Done done)
    : AnswerWindow(strings, "appTitle", std::move(done)), m_field(new QLineEdit(ToQt(question.initial))) {
  if (!question.title.empty()) setWindowTitle(ToQt(question.title));
  QLabel* label = NewWrappedLabel(ToQt(question.label));
  m_field->setAccessibleName(question.label.empty() ? windowTitle() : label->text());
  m_field->setMinimumWidth(m_field->fontMetrics().averageCharWidth() * 48);
  m_field->selectAll();
  if (!question.label.empty()) content().addWidget(label);
  content().addWidget(m_field);
  content().addStretch(1);
}

Result<std::string, Problem> MWinInput::Read() {
  return FromQt(m_field->text());
}

}  // namespace quill::ui
