#pragma once
#include <QWidget>
#include <string>
#include <string_view>
#include <vector>

#include "ui/windows/options/setting_field.h"

class QFormLayout;
class QLabel;
class QPushButton;

namespace quill::ui {

/// A page of the options window: settings from top to bottom, and what else belongs to them.
class OptionPage : public QWidget {
  Q_OBJECT

 public:
  explicit OptionPage(OptionsDesk& desk);

  /// The page's settings, in the order of `Add`.
  const std::vector<SettingField*>& fields() const { return m_fields; }

  /// Shows the settings and facts of the desk as they are now; leaves alone what is being typed.
  void Refresh();

 protected:
  QString Text(std::string_view key) const;
  QString Format(std::string_view key, const std::vector<std::string>& arguments) const;
  OptionsDesk& desk() const { return m_desk; }

  /// Adds a field, with a label in front of it unless `labelKey` is empty.
  void Add(SettingField* field, std::string_view labelKey = {});
  /// Adds anything over the whole width.
  void AddRow(QWidget* widget);
  /// Adds a text that explains, over the whole width.
  QLabel* AddText(std::string_view key);
  /// A button that runs an action of the command table.
  QPushButton* NewActionButton(std::string_view titleKey, std::string_view action);

  QFormLayout& form() { return *m_form; }

 private:
  /// What is no setting: shows it as the facts say.
  virtual void ShowFacts() {}

  OptionsDesk& m_desk;
  QFormLayout* m_form;
  std::vector<SettingField*> m_fields;
};

}  // namespace quill::ui
