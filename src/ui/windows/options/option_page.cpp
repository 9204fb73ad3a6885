#include "ui/windows/options/option_page.h"

#include <QComboBox>
#include <QFormLayout>
#include <QLabel>
#include <QPushButton>
#include <algorithm>

#include "ui/kit/qt_text.h"
#include "ui/kit/wrapped_label.h"

namespace quill::ui {

OptionPage::OptionPage(OptionsDesk& desk) : m_desk(desk), m_form(new QFormLayout(this)) {
  m_form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
  m_form->setRowWrapPolicy(QFormLayout::WrapLongRows);
  m_form->setVerticalSpacing(fontMetrics().lineSpacing() * 2 / 3);
}

QString OptionPage::Text(std::string_view key) const {
  return ToQt(m_desk.strings().Text(key));
}

QString OptionPage::Format(std::string_view key, const std::vector<std::string>& arguments) const {
  return ToQt(m_desk.strings().Format(key, arguments));
}

void OptionPage::Refresh() {
  for (SettingField* field : m_fields) field->Refresh();
  ShowFacts();
}

void OptionPage::Add(SettingField* field, std::string_view labelKey) {
  m_fields.push_back(field);
  if (labelKey.empty()) return AddRow(field);
  auto* label = new QLabel(Text(labelKey));
  label->setBuddy(field->control());
  // The label and the control have different parents, so no screen reader would join them.
  const QString name = WithoutColon(label->text());
  field->control()->setAccessibleName(name);
  // On Linux a combo box goes by its value.
  if (qobject_cast<QComboBox*>(field->control()) != nullptr) {
    field->control()->setAccessibleDescription(name);
  }
  // The form gives a label more height than its text needs and centres the text in it; it stands beside the
  // control, not beside what is under that.
  label->setMaximumHeight(std::max(label->sizeHint().height(), field->control()->sizeHint().height()));
  m_form->addRow(label, field);
}

void OptionPage::AddRow(QWidget* widget) {
  m_form->addRow(widget);
}

QLabel* OptionPage::AddText(std::string_view key) {
  QLabel* label = NewWrappedLabel(Text(key));
  AddRow(label);
  return label;
}

QPushButton* OptionPage::NewActionButton(std::string_view titleKey, std::string_view action) {
  auto* button = new QPushButton(Text(titleKey));
  button->setAutoDefault(false);
  connect(button, &QPushButton::clicked, this, [this, name = std::string(action)] {
    if (m_desk.handlers().runAction) m_desk.handlers().runAction(name);
  });
  return button;
}

}  // namespace quill::ui
