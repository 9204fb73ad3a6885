#pragma once
#include <QFrame>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "shell/string_table.h"
#include "ui/palette/palette_model.h"

class QLabel;
class QLineEdit;
class QListView;
class QStackedLayout;

namespace quill::ui {

/// A search field over all actions. Made once and opened again and again; closing it only hides it. GUI
/// thread.
///
/// The field keeps the keyboard: Up, Down, Page Up, Page Down and Control + Home and End move in the list,
/// Return runs, Escape closes. It closes also when another window gets the keyboard.
class WinPalette final : public QFrame {
  Q_OBJECT

 public:
  /// The setting RecentActions as it is now; asked whenever the palette opens.
  using Recency = std::function<std::string()>;

  /// Called when an action was chosen, after the palette has closed: the window that had the keyboard before
  /// is getting it back.
  using OnChosen = std::function<void(const shell::CommandRow& row, std::optional<std::int64_t> argument)>;

  WinPalette(const shell::StringTable& strings, std::vector<PaletteEntry> entries, Recency recency,
             OnChosen onChosen);

  /// Shows all actions, the last used ones first, in front of everything on the screen with the pointer, and
  /// takes the keyboard. An open palette starts afresh.
  void Open();

  /// Exchanges the entries and reads all texts again, as after a change of the language.
  void SetEntries(std::vector<PaletteEntry> entries);

  /// Says which actions cannot run now, and why; all others can. May come while the palette is open.
  void SetProblems(const PaletteProblems& problems);

 protected:
  bool event(QEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void BuildList();
  void Lay();
  void ReadTexts();
  void Place();
  void Filter();
  bool HandleKey(int key, Qt::KeyboardModifiers modifiers);
  void MoveTo(int row);
  void Choose(const QModelIndex& index);
  void TellCurrent();
  void Tell(const QString& text);

  const shell::StringTable& m_strings;
  Recency m_recency;
  OnChosen m_onChosen;
  PaletteModel m_model;
  QLineEdit* m_field;
  QListView* m_list;
  QLabel* m_nothing;
  QLabel* m_status;
  QStackedLayout* m_stack = nullptr;
};

}  // namespace quill::ui
