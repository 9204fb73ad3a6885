#pragma once
#include <QPointer>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "ui/windows/options/hot_key_lines.h"
#include "ui/windows/options/setting_field.h"

class QLabel;
class QPushButton;
class QTableWidget;

namespace quill::ui {

class ActionPicker;
class KeyRecorder;

/// The setting `HotKeys`: a list of actions and their keys, and a field that records the selected one's.
class HotKeysField final : public SettingField {
  Q_OBJECT

 public:
  explicit HotKeysField(OptionsDesk& desk);
  ~HotKeysField() override;

  /// The action that is selected in the list.
  const shell::CommandRow* selected() const { return m_selected; }

  /// A key that this program has registered was pressed. False when nobody records keys at this moment.
  bool TakePressed(const shell::CommandRow& row);

  /// Adds an action to the list and records a key for it.
  void Choose(const shell::CommandRow& row);

  /// Brings what is shown about the keys up to date with the facts.
  void ShowStates() { Fill(Stored()); }

 signals:
  void SelectedChanged();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Show(const std::string& text) override;
  void BuildTable();
  void BuildEditor();
  void BuildButtons();
  QPushButton* NewButton(std::string_view key, void (HotKeysField::*onClicked)());

  void Fill(const std::string& setting);
  void FillLine(int index, const HotKeyLine& line);
  QString StateText(const HotKeyLine& line) const;
  void Select(int index);
  void ShowSelected();
  void Advise();
  void Tell(const QString& text);

  void SetKeys(const std::optional<platform::KeyCombination>& keys);
  void Assign(const std::optional<platform::KeyCombination>& keys);
  void Remove();
  void UseDefault();
  void UseAllDefaults();
  void TakeOver();
  void PickAction();
  QString Title(const shell::CommandRow& row) const;
  const HotKeyLine* SelectedLine() const;

  std::vector<HotKeyLine> m_lines;
  std::set<const shell::CommandRow*> m_touched;  ///< stay in the list, with a key or without
  const shell::CommandRow* m_selected = nullptr;
  std::optional<platform::KeyCombination> m_contested;  ///< belongs to another action
  QTableWidget* m_table = nullptr;
  KeyRecorder* m_recorder = nullptr;
  QPushButton* m_default = nullptr;
  QPushButton* m_takeOver = nullptr;
  QPushButton* m_allDefaults = nullptr;
  QLabel* m_advice = nullptr;
  QPointer<ActionPicker> m_picker;
};

}  // namespace quill::ui
