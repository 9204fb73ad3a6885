#include "ui/windows/options/hot_keys_page.h"

#include <QClipboard>
#include <QFormLayout>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "ui/kit/qt_text.h"
#include "ui/windows/options/hot_keys_field.h"

namespace quill::ui {

HotKeysPage::HotKeysPage(OptionsDesk& desk)
    : OptionPage(desk),
      m_info(AddText("strOptionsKeysImpossible")),
      m_field(new HotKeysField(desk)),
      m_commandRow(NewCommandRow()) {
  Add(m_field);
  AddRow(m_commandRow);
  QSizePolicy grows = m_field->sizePolicy();
  grows.setVerticalPolicy(QSizePolicy::MinimumExpanding);
  m_field->setSizePolicy(grows);
  connect(m_field, &HotKeysField::SelectedChanged, this, [this] { ShowCommand(); });
  Refresh();
}

QWidget* HotKeysPage::NewCommandRow() {
  auto* widget = new QWidget;
  auto* row = new QHBoxLayout(widget);
  row->setContentsMargins({});
  m_command = new QLineEdit;
  m_command->setReadOnly(true);
  auto* label = new QLabel(Text("strOptionsKeyCommand"));
  label->setBuddy(m_command);
  auto* copy = new QPushButton(Text("strOptionsCopy"));
  copy->setAutoDefault(false);
  connect(copy, &QPushButton::clicked, this,
          [this] { QGuiApplication::clipboard()->setText(m_command->text()); });
  row->addWidget(label);
  row->addWidget(m_command, 1);
  row->addWidget(copy);
  return widget;
}

void HotKeysPage::ShowFacts() {
  const bool possible = desk().facts().hotKeysPossible;
  m_info->setVisible(!possible);
  m_commandRow->setVisible(!possible);
  m_field->ShowStates();
  ShowCommand();
}

void HotKeysPage::ShowCommand() {
  const shell::CommandRow* row = m_field->selected();
  const QString command = row == nullptr ? QString() : QStringLiteral("quill trigger ") + ToQt(row->action);
  if (m_command->text() == command) return;
  m_command->setText(command);
  m_command->setCursorPosition(0);
}

}  // namespace quill::ui
