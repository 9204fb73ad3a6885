#include "ui/windows/tables/separator_choice.h"

#include <QButtonGroup>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QRadioButton>
#include <QVBoxLayout>

#include "ui/kit/qt_text.h"

namespace quill::ui {

SeparatorChoice::SeparatorChoice(const QString& title, const QStringList& modes, const QString& fieldName)
    : QGroupBox(title), m_buttons(new QButtonGroup(this)), m_field(new QLineEdit) {
  auto* column = new QVBoxLayout(this);
  for (const QString& mode : modes) {
    auto* button = new QRadioButton(mode);
    m_buttons->addButton(button, static_cast<int>(m_buttons->buttons().size()));
    column->addWidget(button);
  }
  auto* last = new QHBoxLayout;
  last->addWidget(m_buttons->buttons().back());
  last->addWidget(m_field, 1);
  column->addLayout(last);
  m_field->setAccessibleName(fieldName);
  m_field->setMinimumWidth(m_field->fontMetrics().averageCharWidth() * 8);
  m_field->setEnabled(false);
  connect(m_buttons, &QButtonGroup::idClicked, this, &SeparatorChoice::Take);
  connect(m_field, &QLineEdit::textEdited, this, &SeparatorChoice::Changed);
}

void SeparatorChoice::Choose(std::int64_t mode, std::string_view separator) {
  m_mode = mode;
  m_field->setText(ToQt(separator));
  const qsizetype count = m_buttons->buttons().size();
  if (mode < 0 || mode >= count) return;
  m_buttons->button(static_cast<int>(mode))->setChecked(true);
  m_field->setEnabled(mode == count - 1);
}

std::string SeparatorChoice::separator() const {
  return FromQt(m_field->text());
}

void SeparatorChoice::FocusButtons() {
  QAbstractButton* chosen = m_buttons->checkedButton();
  (chosen != nullptr ? chosen : m_buttons->button(0))->setFocus(Qt::TabFocusReason);
}

void SeparatorChoice::Take(int mode) {
  m_mode = mode;
  m_field->setEnabled(mode == m_buttons->buttons().size() - 1);
  if (m_field->isEnabled()) {
    // Whoever comes by the arrow keys stays among the buttons: they take the keyboard back after this.
    m_field->setFocus();
    m_field->selectAll();
  }
  emit Changed();
}

}  // namespace quill::ui
