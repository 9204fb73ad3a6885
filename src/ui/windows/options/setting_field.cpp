#include "ui/windows/options/setting_field.h"

#include <QAccessible>
#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QStyle>
#include <QVBoxLayout>

#include "ui/kit/qt_text.h"
#include "ui/kit/wrapped_label.h"

namespace quill::ui {

int ExplanationIndent(const QWidget& control) {
  if (qobject_cast<const QCheckBox*>(&control) == nullptr) return 0;
  const QStyle& style = *control.style();
  return style.pixelMetric(QStyle::PM_IndicatorWidth) + style.pixelMetric(QStyle::PM_CheckBoxLabelSpacing);
}

void AddExplanation(QVBoxLayout& column, QWidget& control, const QString& text) {
  control.setAccessibleDescription(text);
  auto* row = new QHBoxLayout;
  row->addSpacing(ExplanationIndent(control));
  row->addWidget(NewWrappedLabel(text), 1);
  column.addLayout(row);
}

SettingField::SettingField(OptionsDesk& desk, std::string_view key)
    : m_desk(desk), m_key(key), m_column(new QVBoxLayout(this)) {
  m_column->setContentsMargins({});
  setObjectName(ToQt(key));
}

QString SettingField::Text(std::string_view key) const {
  return ToQt(m_desk.strings().Text(key));
}

QString SettingField::Format(std::string_view key, const std::vector<std::string>& arguments) const {
  return ToQt(m_desk.strings().Format(key, arguments));
}

void SettingField::SetControl(QWidget* control) {
  m_control = control;
  control->setObjectName(ToQt(m_key) + QStringLiteral("Control"));
  if (control->parentWidget() == nullptr) m_column->addWidget(control);
  setFocusProxy(control);
}

void SettingField::Explain(const QString& text) {
  m_explanation = text;
  AddExplanation(*m_column, *m_control, text);
}

void SettingField::Refresh() {
  if (!IsBeingTyped()) Show(Stored());
}

void SettingField::Refuse(const std::string& problem) {
  ForgetProblem();
  Refresh();
  m_problem = new ProblemLine({problem, nullptr}, *m_column);
  m_control->setAccessibleDescription(ToQt(problem));
  m_problem->setAccessibleName(ToQt(problem));
  QAccessibleEvent alert(m_problem, QAccessible::Alert);
  QAccessible::updateAccessibility(&alert);
}

void SettingField::ForgetProblem() {
  if (!m_problem) return;
  m_problem->Remove();
  m_control->setAccessibleDescription(m_explanation);
}

void SettingField::Send(const std::string& text) {
  ForgetProblem();
  m_desk.Change(m_key, text);
}

}  // namespace quill::ui
