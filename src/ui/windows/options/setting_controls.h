#pragma once
#include <QTimer>
#include <cstdint>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "ui/windows/options/setting_field.h"

class QCheckBox;
class QComboBox;
class QLineEdit;
class QPushButton;
class QSpinBox;

namespace quill::ui {

/// A setting that is on or off.
class CheckField final : public SettingField {
 public:
  CheckField(OptionsDesk& desk, std::string_view key, const QString& title);

  QCheckBox& box() const { return *m_box; }

 private:
  void Show(const std::string& text) override;

  QCheckBox* m_box;
};

/// One of several values.
class ChoiceField final : public SettingField {
 public:
  /// Pairs of a setting's text and what the user reads.
  ChoiceField(OptionsDesk& desk, std::string_view key,
              const std::vector<std::pair<std::string, QString>>& choices);

 private:
  void Show(const std::string& text) override;

  QComboBox* m_box;
};

/// A setting that is typed: it is sent when Return is pressed, when the keyboard goes elsewhere, or after a
/// pause, and not at every key.
class TypedField : public SettingField {
 public:
  using SettingField::SettingField;

  void Commit() final;

 protected:
  /// To be called once, with the pause.
  void StartTimerAfterTyping();
  /// The user has typed or stepped.
  void Typed();

  bool IsBeingTyped() const final { return m_typed; }

  /// What is in the field as the setting's text; false when it is half typed.
  virtual bool Read(std::string& text) = 0;

 private:
  /// Sends what was typed; what the setting cannot be is taken for half typed.
  void CommitAfterPause();

  QTimer m_pause;
  bool m_typed = false;
};

/// What may be entered into a number field.
struct NumberRange {
  int least = 0;
  int most = 0;
  int step = 1;
  std::int64_t scale = 1;  ///< the setting is so many times the number in the field
  QString unit = {};       ///< behind the number
};

/// A whole number. A stored value between two that can be shown is shown rounded and kept until the user
/// enters another.
class NumberField final : public TypedField {
 public:
  NumberField(OptionsDesk& desk, std::string_view key, const NumberRange& range);

 private:
  void Show(const std::string& text) override;
  bool Read(std::string& text) override;
  /// The number in the field for a setting's text.
  int Shown(const std::string& text) const;

  std::int64_t m_scale;
  QSpinBox* m_box;
};

/// Whether the spaces around a text belong to it.
enum class OuterSpaces { Kept, Dropped };

/// A text.
class TextField final : public TypedField {
 public:
  TextField(OptionsDesk& desk, std::string_view key, OuterSpaces spaces = OuterSpaces::Kept);

  /// Says what holds while nothing is entered.
  void ShowWhenEmpty(const QString& text);
  /// Puts a button behind the field.
  void AddButton(QPushButton* button);
  /// Changes the text as the user would.
  void Enter(const std::string& text);

  /// Sets who is told the text at every key, and whenever it changes by itself.
  void OnText(std::function<void(const std::string& text)> listener);

 private:
  void Show(const std::string& text) override;
  bool Read(std::string& text) override;

  OuterSpaces m_spaces;
  QLineEdit* m_edit;
};

}  // namespace quill::ui
